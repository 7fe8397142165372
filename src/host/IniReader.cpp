// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/IniReader.h"

#include "host/RegularFile.h"

#include <QFile>

#include <algorithm>

namespace {

constexpr char byteOrderMark[] = "\xEF\xBB\xBF";

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control && c != QLatin1Char('\t');
}

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t');
}

/// Removes blanks and tabs only; QString::trimmed() would remove every Unicode space.
QString trimmed(const QString& text)
{
    const auto* const first = std::find_if_not(text.cbegin(), text.cend(), isBlank);
    const auto last = std::find_if_not(text.crbegin(), text.crend(), isBlank).base();
    return first < last ? QString(first, int(last - first)) : QString();
}

} // namespace

IniReader::IniReader(const QString& file)
    : m_file(file)
{
}

bool IniReader::read()
{
    QByteArray content;
    if (!readBytes(content))
        return false;
    if (content.startsWith(byteOrderMark))
        content.remove(0, sizeof byteOrderMark - 1);
    const QList<QByteArray> lines = content.split('\n');
    return std::all_of(lines.cbegin(), lines.cend(), [this](const QByteArray& line) {
        ++m_line;
        return readLine(line);
    });
}

bool IniReader::readBytes(QByteArray& content)
{
    QFile file(m_file);
    if (!file.exists())
        return failWhole(QStringLiteral("no such file"));
    QString reason;
    if (!RegularFile::open(file, QIODevice::ReadOnly, &reason))
        return failWhole(QStringLiteral("the file cannot be read: %1").arg(reason));
    content = file.read(maxBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return failWhole(QStringLiteral("the file cannot be read: %1").arg(file.errorString()));
    if (content.size() > maxBytes)
        return failWhole(QStringLiteral("larger than %1 bytes").arg(maxBytes));
    return true;
}

bool IniReader::readLine(QByteArray bytes)
{
    if (bytes.endsWith('\r'))
        bytes.chop(1);
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    if (text.toUtf8() != bytes) // invalid UTF-8 has become replacement characters
        return failHere(QStringLiteral("expected UTF-8"));
    const auto* const control = std::find_if(text.cbegin(), text.cend(), isControl);
    if (control != text.cend()) {
        return failHere(QStringLiteral("expected text, found the control character U+%1")
                            .arg(int(control->unicode()), 4, 16, QLatin1Char('0')));
    }
    const QString line = trimmed(text);
    if (line.isEmpty() || line.startsWith(QLatin1Char(';')) || line.startsWith(QLatin1Char('#')))
        return true;
    return line.startsWith(QLatin1Char('[')) ? readSection(line) : readEntry(line);
}

bool IniReader::readSection(const QString& line)
{
    const QString name = trimmed(line.mid(1, line.size() - 2));
    if (!line.endsWith(QLatin1Char(']')) || name.isEmpty() || name.contains(QLatin1Char('['))
        || name.contains(QLatin1Char(']')))
        return failHere(QStringLiteral("expected \"[section]\" and nothing else in the line"));
    m_section = name;
    m_isInSection = true;
    return true;
}

bool IniReader::readEntry(const QString& line)
{
    const auto equals = line.indexOf(QLatin1Char('='));
    if (equals < 1)
        return failHere(
            QStringLiteral("expected \"key = value\", \"[section]\" or a comment after ; or #"));
    if (!m_isInSection)
        return failHere(QStringLiteral("expected a \"[section]\" before the first setting"));
    Entry entry{m_section, trimmed(line.left(equals)), trimmed(line.mid(equals + 1)), m_line};
    const int first = m_lines.value({entry.section, entry.key});
    if (first > 0) {
        return failHere(QStringLiteral("%1/%2 is ambiguous: line %3 sets it, too")
                            .arg(entry.section, entry.key, QString::number(first)));
    }
    if (entry.value.startsWith(QLatin1Char('"')) && !readQuoted(entry.value.mid(1), entry.value))
        return false;
    m_lines.insert({entry.section, entry.key}, m_line);
    m_entries.append(entry);
    return true;
}

/// `quoted` begins after the opening quote.
bool IniReader::readQuoted(const QString& quoted, QString& value)
{
    QString text;
    for (int i = 0; i < quoted.size(); ++i) {
        if (quoted[i] == QLatin1Char('"')) {
            if (i + 1 < quoted.size())
                return failHere(QStringLiteral("expected nothing behind the closing quote"));
            value = text;
            return true;
        }
        if (quoted[i] == QLatin1Char('\\')) {
            ++i;
            if (i == quoted.size())
                break;
            if (quoted[i] != QLatin1Char('\\') && quoted[i] != QLatin1Char('"')) {
                return failHere(
                    QStringLiteral("expected \\\\ or \\\" in a quoted value, found \\%1")
                        .arg(quoted[i]));
            }
        }
        text += quoted[i];
    }
    return failHere(QStringLiteral("expected a closing quote at the end of the value"));
}

bool IniReader::fail(int line, const QString& reason)
{
    m_error = QStringLiteral("%1:%2: %3").arg(m_file, QString::number(line), reason);
    return false;
}

bool IniReader::failWhole(const QString& reason)
{
    m_error = QStringLiteral("%1: %2").arg(m_file, reason);
    return false;
}
