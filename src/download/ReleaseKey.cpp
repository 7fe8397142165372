// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseKey.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace {

const QByteArray algorithm("Ed");

} // namespace

ReleaseKey::ReleaseKey(QByteArray id, QByteArray key)
    : m_id(std::move(id))
    , m_key(std::move(key))
{
}

bool ReleaseKey::parse(const QString& text, ReleaseKey& out, QString& error)
{
    const QStringList lines = text.trimmed().split(QLatin1Char('\n'));
    const bool hasComment =
        lines.size() == 2 && lines.first().startsWith(QLatin1String("untrusted comment:"));
    if (lines.size() != 1 && !hasComment) {
        error = QStringLiteral("not the public key of minisign: a comment and a line in base64");
        return false;
    }
    const auto decoded = QByteArray::fromBase64Encoding(
        lines.constLast().trimmed().toLatin1(),
        QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    const QByteArray& bytes = *decoded;
    if (!decoded || bytes.size() != algorithm.size() + idBytes + keyBytes
        || !bytes.startsWith(algorithm)) {
        error = QStringLiteral("not the public key of minisign: its line in base64 does not hold "
                               "an Ed25519 key");
        return false;
    }
    out = ReleaseKey(bytes.mid(algorithm.size(), idBytes), bytes.right(keyBytes));
    return true;
}

bool ReleaseKey::areUsable(const QStringList& keys, QString& error)
{
    for (const QString& text : keys) {
        ReleaseKey key;
        QString fault;
        if (!parse(text, key, fault)) {
            error = QStringLiteral("the key \"%1\" is %2").arg(text, fault);
            return false;
        }
    }
    return true;
}

QString ReleaseKey::idText() const
{
    QByteArray bytes = m_id; // a little-endian number
    std::reverse(bytes.begin(), bytes.end());
    return QString::fromLatin1(bytes.toHex().toUpper());
}

QString ReleaseKey::toText() const
{
    return QString::fromLatin1((algorithm + m_id + m_key).toBase64());
}
