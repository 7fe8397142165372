#include "catalogue/XmlGuard.h"

#include <QStringView>

namespace {

/// Walks over the markup of one document.
class Walker
{
public:
    explicit Walker(const QString& text)
        : m_text(text)
    {
    }

    bool walk()
    {
        for (;;) {
            m_at = m_text.indexOf(QLatin1Char('<'), m_at);
            if (m_at < 0)
                return true; // whether it is well-formed up to here is the parser's business
            if (!step() || ++m_pieces > XmlGuard::mostPieces)
                return false;
            if (m_at < 0)
                return true;
        }
    }

private:
    bool step()
    {
        const int next = m_at + 1;
        switch (next < m_text.size() ? m_text.at(next).unicode() : 0) {
        case '/':
            --m_depth;
            m_at = m_text.indexOf(QLatin1Char('>'), next);
            return true;
        case '?':
            return skipPast("?>", 2);
        case '!':
            if (startsWith("<!--"))
                return skipPast("-->", 4);
            if (startsWith("<![CDATA["))
                return skipPast("]]>", 9);
            return skipDeclaration();
        default:
            return enterElement();
        }
    }

    bool startsWith(const char* markup) const
    {
        return QStringView(m_text).mid(m_at).startsWith(QLatin1String(markup));
    }

    /// An end that is missing ends the walk: the parser finds the document malformed there.
    bool skipPast(const char* end, int opening)
    {
        const QLatin1String text(end);
        const int found = m_text.indexOf(text, m_at + opening);
        m_at = found < 0 ? -1 : found + text.size();
        return true;
    }

    bool skipDeclaration()
    {
        const int end = findOutsideQuotes(
            m_at, [](QChar c) { return c == QLatin1Char('>') || c == QLatin1Char('['); });
        m_at = end;
        return end < 0 || m_text.at(end) != QLatin1Char('[');
    }

    bool enterElement()
    {
        const int end = findOutsideQuotes(m_at, [](QChar c) { return c == QLatin1Char('>'); });
        if (end < 0) {
            m_at = -1;
            return true;
        }
        const bool closed = m_text.at(end - 1) == QLatin1Char('/');
        m_at = end + 1;
        return closed ? m_depth < XmlGuard::deepestNesting : ++m_depth <= XmlGuard::deepestNesting;
    }

    template <class Predicate>
    int findOutsideQuotes(int from, Predicate isEnd)
    {
        QChar quote;
        const QChar* const text = m_text.constData();
        for (int at = from; at < m_text.size(); ++at) {
            const QChar c = text[at];
            if (!quote.isNull()) {
                if (c == quote)
                    quote = QChar();
            } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
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
};

} // namespace

bool XmlGuard::accepts(const QString& text)
{
    return !text.contains(QChar(QChar::Null)) && Walker(text).walk();
}
