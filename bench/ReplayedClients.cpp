// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReplayedClients.h"

#include <utility>
#include <vector>

namespace {

constexpr int atOnce = 16;
constexpr int tickMs = 1000;
constexpr int longestReplayMs = 45000;

std::size_t discard(char* /*bytes*/, std::size_t size, std::size_t count, void* /*user*/)
{
    return size * count;
}

/// Adds a header field, or suppresses libcurl's own.
void add(curl_slist*& fields, const char* name, const QByteArray& value)
{
    fields = curl_slist_append(fields,
                               QByteArray(name + QByteArray(value.isEmpty() ? ":" : ": ") + value));
}

void addIfSent(curl_slist*& fields, const char* name, const QByteArray& value)
{
    if (!value.isEmpty())
        add(fields, name, value);
}

} // namespace

ReplayedClients::ReplayedClients(QByteArray server, const QVector<TrafficLog::Request>& requests)
    : m_multi(curl_multi_init())
{
    for (const TrafficLog::Request& request : requests) {
        Prepared prepared{server + request.target, request.status, nullptr};
        add(prepared.fields, "User-Agent", request.userAgent);
        add(prepared.fields, "Accept", request.accept);
        addIfSent(prepared.fields, "Accept-Encoding", request.acceptEncoding);
        addIfSent(prepared.fields, "Range", request.range);
        addIfSent(prepared.fields, "If-None-Match", request.ifNoneMatch);
        addIfSent(prepared.fields, "If-Modified-Since", request.ifModifiedSince);
        addIfSent(prepared.fields, "Cache-Control", request.cacheControl);
        m_requests.append(prepared);
    }
}

ReplayedClients::~ReplayedClients()
{
    for (const Prepared& request : std::as_const(m_requests))
        curl_slist_free_all(request.fields);
    curl_multi_cleanup(m_multi);
}

QString ReplayedClients::run(int clients)
{
    m_waiting = clients;
    m_done = 0;
    m_timer.start();
    m_error.clear();
    std::vector<Client> running(static_cast<std::size_t>(qMin(clients, atOnce)));
    for (Client& client : running) {
        client.easy = curl_easy_init();
        curl_easy_setopt(client.easy, CURLOPT_PRIVATE, &client);
        curl_easy_setopt(client.easy, CURLOPT_WRITEFUNCTION, &discard);
        curl_easy_setopt(client.easy, CURLOPT_PATH_AS_IS, 1L);
        --m_waiting;
        begin(client);
    }
    while (m_running > 0) {
        int active = 0;
        curl_multi_perform(m_multi, &active);
        endTransfers();
        if (active > 0)
            curl_multi_poll(m_multi, nullptr, 0, tickMs, nullptr);
    }
    for (const Client& client : running)
        curl_easy_cleanup(client.easy);
    return m_error;
}

void ReplayedClients::begin(Client& client)
{
    const Prepared& request = m_requests.at(client.next++);
    curl_easy_setopt(client.easy, CURLOPT_URL, request.url.constData());
    curl_easy_setopt(client.easy, CURLOPT_HTTPHEADER, request.fields);
    // The next client has connections of its own.
    curl_easy_setopt(client.easy, CURLOPT_FORBID_REUSE, client.next == m_requests.size() ? 1L : 0L);
    curl_multi_add_handle(m_multi, client.easy);
    ++m_running;
}

void ReplayedClients::endTransfers()
{
    int left = 0;
    while (const CURLMsg* const message = curl_multi_info_read(m_multi, &left)) {
        const CURLcode code = message->data.result;
        void* client = nullptr;
        curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &client);
        if (end(*static_cast<Client*>(client), code))
            begin(*static_cast<Client*>(client));
    }
}

/// Returns whether the client, or the next one in its place, has another request to send.
bool ReplayedClients::end(Client& client, CURLcode code)
{
    curl_multi_remove_handle(m_multi, client.easy);
    --m_running;
    const Prepared& request = m_requests.at(client.next - 1);
    long status = 0;
    curl_easy_getinfo(client.easy, CURLINFO_RESPONSE_CODE, &status);
    if (code != CURLE_OK || status != request.status) {
        m_error = QStringLiteral("%1: %2, status %3")
                      .arg(QString::fromUtf8(request.url),
                           QString::fromLatin1(curl_easy_strerror(code)), QString::number(status));
        return false;
    }
    if (!m_error.isEmpty())
        return false;
    if (client.next < m_requests.size())
        return true;
    ++m_done;
    if (m_waiting == 0 || m_timer.hasExpired(longestReplayMs))
        return false;
    --m_waiting;
    client.next = 0;
    return true;
}
