// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/HttpAnswer.h"

HttpAnswer::HttpAnswer(int status, const QByteArray& reason)
    : m_head("HTTP/1.1 " + QByteArray::number(status) + ' ' + reason + "\r\n")
{
}

HttpAnswer& HttpAnswer::field(const QByteArray& name, const QByteArray& value)
{
    m_head += name + ": " + value + "\r\n";
    return *this;
}

HttpAnswer& HttpAnswer::body(const QByteArray& body)
{
    field("Content-Length", QByteArray::number(body.size()));
    return bareBody(body);
}

HttpAnswer& HttpAnswer::bareBody(const QByteArray& body)
{
    m_body += body;
    return *this;
}

QByteArray HttpAnswer::bytes() const
{
    return m_head + "\r\n" + m_body;
}

QByteArray HttpAnswer::chunk(const QByteArray& data)
{
    return QByteArray::number(data.size(), 16) + "\r\n" + data + "\r\n";
}

QByteArray HttpAnswer::lastChunk()
{
    return "0\r\n\r\n";
}
