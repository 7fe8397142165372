// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <QVector>

/// The log of one server of the scale benchmark: what it was asked for, and what that cost.
class TrafficLog
{
public:
    /// A request with everything that decides about its answer.
    struct Request
    {
        QByteArray target;
        int status = 0;
        qint64 sentBytes = 0;     // of the answer, header included
        qint64 receivedBytes = 0; // of the request
        QByteArray range;
        QByteArray ifNoneMatch;
        QByteArray ifModifiedSince;
        QByteArray cacheControl;
        QByteArray userAgent;
        QByteArray accept;
        QByteArray acceptEncoding;
    };
    struct Sum
    {
        qint64 requests = 0;
        qint64 sentBytes = 0;
        qint64 receivedBytes = 0;

        void add(const Request& request);
        void add(const Sum& other);
    };

    /// Describes the log that nginx writes to `file`.
    explicit TrafficLog(const QString& file);
    /// Returns the directives that make nginx write it, for its block "http".
    QByteArray directives() const;

    /// Marks a place in the logs: the target of a request that no client sends, and that was sent
    /// after all others were answered.
    static QByteArray markTarget(int number);

    /// Return what has come since the last call of either, waiting for the request `mark`, which
    /// does not count.
    QVector<Request> takeRequests(const QByteArray& mark);
    Sum takeSum(const QByteArray& mark);

    static Sum sumOf(const QVector<Request>& requests);

private:
    template <class Use>
    void takeLines(const QByteArray& mark, Use use);

    QString m_file;
    qint64 m_read = 0;
};
