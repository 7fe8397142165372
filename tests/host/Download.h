// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CurWrapper.h"
#include "support/CatalogueFiles.h"
#include "support/FaultServer.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

/// One downloader with a folder of its own to download into.
class Download
{
public:
    Download()
        : m_dir(TestHome::path() + QStringLiteral("/download-XXXXXX"))
    {
        if (!m_dir.isValid())
            qFatal("no folder to download into");
    }

    QString folder() const { return m_dir.path(); }
    QString target() const { return folder() + QStringLiteral("/file.bin"); }
    QByteArray content() const { return CatalogueFiles::read(target()); }
    QStringList files() const { return CatalogueFiles::filesBelow(folder()); }
    CurWrapper& wrapper() { return m_wrapper; }
    QString errorText() const { return m_wrapper.errorText(); }

    /// Downloads into target() and verifies what holds after every download: a failure leaves the
    /// folder unchanged and has a text, a success adds at most the target, and neither leaves a
    /// temporary file. Returns the result.
    int run(const QString& url, bool resume = false)
    {
        const QStringList before = files();
        const QByteArray contentBefore = content();
        m_wrapper.download(url, target(), resume);
        checkWhatIsLeft(before, contentBefore);
        return m_wrapper.result();
    }

private:
    void checkWhatIsLeft(QStringList expected, const QByteArray& contentBefore) const
    {
        const bool success = m_wrapper.result() == 0;
        if (success && !expected.contains(QStringLiteral("file.bin"))) {
            expected.append(QStringLiteral("file.bin"));
            expected.sort();
        }
        QCOMPARE(files(), expected);
        QCOMPARE(m_wrapper.errorText().isEmpty(), success);
        if (!success)
            QCOMPARE(content(), contentBefore);
    }

    QTemporaryDir m_dir;
    CurWrapper m_wrapper;
};

/// Records the progress calls of one downloader and decides whether the download continues.
class ProgressWatch
{
public:
    struct Call
    {
        qint64 received;
        qint64 total;
    };
    using Decision = std::function<bool(const Call&)>;

    explicit ProgressWatch(CurWrapper& wrapper, Decision decision = Decision())
        : m_decision(std::move(decision))
    {
        wrapper.setDownloadProgressCallback(&ProgressWatch::onProgress, this);
    }

    const QVector<Call>& calls() const { return m_calls; }

private:
    static bool onProgress(qint64 received, qint64 total, void* user)
    {
        auto* const self = static_cast<ProgressWatch*>(user);
        self->m_calls.append({received, total});
        return !self->m_decision || self->m_decision(self->m_calls.last());
    }

    Decision m_decision;
    QVector<Call> m_calls;
};

/// Returns bytes that differ at every position and between two seeds, so that every mix-up shows.
inline QByteArray pattern(int size, quint32 seed = 1)
{
    QByteArray bytes(size, Qt::Uninitialized);
    quint32 state = seed * 2654435761U + 1;
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

/// Answers each request with the next step; the last step answers all further requests.
inline FaultServer::Handler inTurn(std::vector<FaultServer::Handler> steps)
{
    auto next = std::make_shared<std::atomic<std::size_t>>(0);
    return [steps = std::move(steps), next](HttpExchange& exchange) {
        steps[std::min((*next)++, steps.size() - 1)](exchange);
    };
}

/// A step that sends an answer and keeps the connection open.
inline FaultServer::Handler answering(const QByteArray& answer)
{
    return [answer](HttpExchange& exchange) { exchange.send(answer); };
}

inline FaultServer::Handler answering(const HttpAnswer& answer)
{
    return answering(answer.bytes());
}

/// A step that sends an answer and closes the connection properly.
inline FaultServer::Handler answeringAndClosing(const QByteArray& answer)
{
    return [answer](HttpExchange& exchange) {
        exchange.send(answer);
        exchange.close();
    };
}

inline FaultServer::Handler answeringAndClosing(const HttpAnswer& answer)
{
    return answeringAndClosing(answer.bytes());
}

/// Puts the bytes of an answer into a table of test data.
inline QTestData& operator<<(QTestData& data, const HttpAnswer& answer)
{
    return data << answer.bytes();
}

inline HttpAnswer redirectTo(const QByteArray& location, int status = 302)
{
    return HttpAnswer(status).field("Location", location).body("moved");
}
