// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseList.h"

#include "host/ContentDigest.h"

#include <QList>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace {

constexpr int maxSizeDigits = 18; // any such number fits into 64 bits

bool precedes(const ReleaseList::Entry& left, const ReleaseList::Entry& right)
{
    return left.path < right.path;
}

/// Returns a decimal number without sign or leading zeros, -1 for any other text.
qint64 sizeOf(const QByteArray& text)
{
    const bool isNumber = !text.isEmpty() && text.size() <= maxSizeDigits
        && (text == "0" || text.at(0) != '0')
        && std::all_of(text.cbegin(), text.cend(), [](char c) { return c >= '0' && c <= '9'; });
    return isNumber ? text.toLongLong() : -1;
}

bool isUtf8(const QByteArray& text)
{
    return QString::fromUtf8(text).toUtf8() == text;
}

/// Returns why a line does not describe a file; empty if `entry` has its values.
QString readLine(const QByteArray& line, ReleaseList::Entry& entry)
{
    const int first = line.indexOf('\t');
    const int second = first < 0 ? -1 : line.indexOf('\t', first + 1);
    if (second < 0)
        return QStringLiteral("it does not have three fields");
    entry.digest = line.left(first);
    entry.sizeBytes = sizeOf(line.mid(first + 1, second - first - 1));
    entry.path = line.mid(second + 1);
    if (!ContentDigest::isDigest(entry.digest))
        return QStringLiteral("its digest is not a SHA-256 in lower case");
    if (entry.sizeBytes < 0)
        return QStringLiteral("its size is not a decimal number");
    return ReleaseList::faultOf(entry.path);
}

} // namespace

ReleaseList::ReleaseList(QVector<Entry> entries)
    : m_entries(std::move(entries))
{
    std::sort(m_entries.begin(), m_entries.end(), &precedes);
}

QString ReleaseList::faultOf(const QByteArray& path)
{
    if (path.size() > maxPathBytes)
        return QStringLiteral("its path is longer than %1 bytes").arg(maxPathBytes);
    const auto isRefused = [](char c) {
        const auto code = static_cast<unsigned char>(c);
        return code < ' ' || code == 0x7f || c == '\\' || c == ':';
    };
    if (std::any_of(path.cbegin(), path.cend(), isRefused))
        return QStringLiteral("its path has a character that no listed file may have");
    if (!isUtf8(path))
        return QStringLiteral("its path is not UTF-8");
    const QList<QByteArray> parts = path.split('/');
    const bool isPlain = std::none_of(parts.cbegin(), parts.cend(), [](const QByteArray& part) {
        return part.isEmpty() || part == "." || part == "..";
    });
    return isPlain ? QString() : QStringLiteral("its path is not one below the server root");
}

bool ReleaseList::parse(const QByteArray& text, ReleaseList& out, QString& error)
{
    ReleaseList list;
    QString reason;
    int number = 0;
    for (int at = 0; at < text.size() && reason.isEmpty();) {
        ++number;
        const int end = text.indexOf('\n', at);
        Entry entry;
        reason =
            end < 0 ? QStringLiteral("it is cut off") : readLine(text.mid(at, end - at), entry);
        if (reason.isEmpty() && !list.m_entries.isEmpty()
            && !precedes(list.m_entries.constLast(), entry))
            reason = QStringLiteral("it is not sorted behind the line before it");
        if (reason.isEmpty() && number > maxFiles)
            reason = QStringLiteral("there are more than %1 files").arg(maxFiles);
        list.m_entries.append(std::move(entry));
        at = end + 1;
    }
    if (!reason.isEmpty()) {
        error =
            QStringLiteral("line %1 of the list of files is refused: %2").arg(number).arg(reason);
        return false;
    }
    out = std::move(list);
    return true;
}

QByteArray ReleaseList::toText() const
{
    QByteArray text;
    for (const Entry& entry : m_entries) {
        text +=
            entry.digest + '\t' + QByteArray::number(entry.sizeBytes) + '\t' + entry.path + '\n';
    }
    return text;
}

ReleaseList::Entry ReleaseList::find(const QString& path) const
{
    Entry wanted;
    wanted.path = path.split(QLatin1Char('/'), Qt::SkipEmptyParts).join(QLatin1Char('/')).toUtf8();
    const auto at = std::lower_bound(m_entries.cbegin(), m_entries.cend(), wanted, &precedes);
    return at != m_entries.cend() && at->path == wanted.path ? *at : Entry();
}
