// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/XmlGuard.h"

#include <QStringView>

namespace {

/// Scans the markup of one document.
class Walker
{
public:
    explicit Walker(const QString& text)
        : m_text(text)
    {
    }

    /// Scans the document and returns why it stopped before the end; empty if it did not.
    QString walk()
    {
        for (;;) {
            m_at = m_text.indexOf(QLatin1Char('<'), m_at);
            if (m_at < 0)
                return {}; // the parser judges whether it is well-formed up to here
            step();
            if (++m_pieces > XmlGuard::maxPieces)
                refuse(QStringLiteral("more than %1 pieces of markup").arg(XmlGuard::maxPieces));
            if (m_at < 0 || !m_fault.isEmpty())
                return m_fault;
        }
    }

private:
    void refuse(const QString& fault)
    {
        if (m_fault.isEmpty())
            m_fault = fault;
    }

    void step()
    {
        const int next = m_at + 1;
        switch (next < m_text.size() ? m_text.at(next).unicode() : 0) {
        case '/':
            --m_depth;
            m_at = m_text.indexOf(QLatin1Char('>'), next);
            return;
        case '?':
            skipPast("?>", 2);
            return;
        case '!':
            if (startsWith("<!--"))
                skipPast("-->", 4);
            else if (startsWith("<![CDATA["))
                skipPast("]]>", 9);
            else
                skipDeclaration();
            return;
        default:
            enterElement();
        }
    }

    bool startsWith(const char* markup) const
    {
        return QStringView(m_text).mid(m_at).startsWith(QLatin1String(markup));
    }

    /// A missing end ends the scan: the parser reports the document as malformed there.
    void skipPast(const char* end, int opening)
    {
        const QLatin1String text(end);
        const int found = m_text.indexOf(text, m_at + opening);
        m_at = found < 0 ? -1 : found + text.size();
    }

    void skipDeclaration()
    {
        const int end = findOutsideQuotes(m_at, [](ushort c) { return c == u'>' || c == u'['; });
        m_at = end;
        if (end >= 0 && m_text.at(end) == QLatin1Char('['))
            refuse(QStringLiteral("a document type that declares entities"));
    }

    void enterElement()
    {
        const int piecesBefore = m_pieces;
        const int end = findOutsideQuotes(m_at, [](ushort c) { return c == u'>'; });
        if (m_pieces - piecesBefore > XmlGuard::maxAttributes) {
            refuse(QStringLiteral("more than %1 attributes on one element")
                       .arg(XmlGuard::maxAttributes));
        }
        if (end < 0) {
            m_at = -1;
            return;
        }
        const bool isClosed = m_text.at(end - 1) == QLatin1Char('/');
        m_at = end + 1;
        if (m_depth + 1 > XmlGuard::maxNesting)
            refuse(QStringLiteral("elements nested deeper than %1").arg(XmlGuard::maxNesting));
        if (!isClosed)
            ++m_depth;
    }

    template <class Predicate>
    int findOutsideQuotes(int from, Predicate isEnd)
    {
        ushort quote = 0;
        const ushort* const text = m_text.utf16();
        const int size = static_cast<int>(m_text.size());
        for (int at = from; at < size; ++at) {
            const ushort c = text[at];
            if (quote != 0) {
                if (c == quote)
                    quote = 0;
            } else if (c == u'"' || c == u'\'') {
                quote = c;
                ++m_pieces; // an attribute
            } else if (isEnd(c)) {
                return at;
            }
        }
        return -1;
    }

    const QString& m_text;
    int m_at = 0;
    int m_depth = 0;
    int m_pieces = 0;
    QString m_fault;
};

} // namespace

QString XmlGuard::fault(const QString& text)
{
    return Walker(text).walk();
}
