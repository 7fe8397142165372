// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

/// Builds the bytes of an HTTP/1.1 answer, valid or deliberately invalid.
class HttpAnswer
{
public:
    explicit HttpAnswer(int status, const QByteArray& reason = "Reason");

    HttpAnswer& field(const QByteArray& name, const QByteArray& value);
    /// Appends the body and announces its length.
    HttpAnswer& body(const QByteArray& body);
    /// Appends bytes after the header without announcing them.
    HttpAnswer& bareBody(const QByteArray& body);

    /// Returns header, blank line and body.
    QByteArray bytes() const;

    /// Returns one chunk of a chunked body.
    static QByteArray chunk(const QByteArray& data);
    static QByteArray lastChunk();

private:
    QByteArray m_head;
    QByteArray m_body;
};
