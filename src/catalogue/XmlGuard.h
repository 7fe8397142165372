#pragma once

#include <QString>

/// Looks at a document from a server before the DOM reader sees it. Internal to the library.
///
/// The DOM reader expands entities without a limit (130 KB become 4 GB) and walks nested elements
/// recursively (a few thousand levels end the process), and makes some 200 bytes of every tag and
/// attribute. A document that asks for too much of that counts as malformed. One pass over the
/// text, no allocation; it is no parser: what it lets through can still be malformed.
class XmlGuard
{
public:
    /// Largest document, in bytes.
    static constexpr qint64 longestDocument = 64 * 1024 * 1024;
    /// Deepest nesting of elements.
    static constexpr int deepestNesting = 64;
    /// Most tags, attributes, comments and the like; a catalogue of 64 MiB has about as many.
    static constexpr int mostPieces = 2000000;

    XmlGuard() = delete;

    /// False for a NUL character, a document type with an internal subset, nesting deeper than
    /// deepestNesting, and more than mostPieces pieces of markup.
    static bool accepts(const QString& text);
};
