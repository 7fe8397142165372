// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Routes.h"

#include "support/HttpAnswer.h"

#include <limits>

namespace {

constexpr std::chrono::milliseconds tick(10);
constexpr int longestWait = 3000; // ticks

} // namespace

FaultServer::Handler Routes::by(const Map& handlers)
{
    return [handlers](HttpExchange& exchange) {
        const auto found = handlers.constFind(exchange.request().target);
        if (found == handlers.cend())
            exchange.answer(HttpAnswer(404).body("no such file"));
        else
            found.value()(exchange);
    };
}

FaultServer::Handler Routes::body(const QByteArray& bytes)
{
    return [bytes](HttpExchange& exchange) { exchange.answer(HttpAnswer(200).body(bytes)); };
}

FaultServer::Handler Routes::stall()
{
    return [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Content-Length", "100000").bareBody("beginning"));
        exchange.stall();
    };
}

Gate::Gate()
    : m_state(std::make_shared<State>())
{
}

Gate::~Gate()
{
    m_state->opened = std::numeric_limits<int>::max();
}

void Gate::open()
{
    ++m_state->opened;
}

FaultServer::Handler Gate::body(const QByteArray& bytes)
{
    return [state = m_state, bytes](HttpExchange& exchange) {
        const int number = ++state->arrived;
        const int half = bytes.size() / 2;
        exchange.answer(HttpAnswer(200)
                            .field("Content-Length", QByteArray::number(bytes.size()))
                            .bareBody(bytes.left(half)));
        // When the server stops, pause() returns at once, so this loop ends as well.
        for (int turn = 0; state->opened < number && turn < longestWait; ++turn)
            exchange.pause(tick);
        exchange.send(bytes.mid(half));
    };
}
