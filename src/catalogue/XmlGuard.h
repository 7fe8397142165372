#pragma once

#include <QString>

/// Looks at a document from a server before the DOM reader sees it. Internal to the library.
///
/// The DOM reader expands entities without a limit (130 KB become 4 GB) and walks nested elements
/// recursively (a few thousand levels end the process), and makes some 200 bytes of every tag and
/// attribute. A document that asks for too much of that counts as malformed. One pass over the
/// text, no allocation, no parsing: what it lets through can still be malformed.
class XmlGuard
{
public:
    /// Size of a document.
    static constexpr qint64 maxBytes = 64 * 1024 * 1024;
    /// Nesting of elements.
    static constexpr int maxNesting = 64;
    /// Tags, attributes, comments and the like; a catalogue of 64 MiB has about as many.
    static constexpr int maxPieces = 2000000;
    /// Attributes of one element: the DOM reader compares each with all before it.
    static constexpr int maxAttributes = 1000;

    XmlGuard() = delete;

    /// Returns why the document asks for too much, for people; empty if it does not: a document
    /// type with an internal subset (which declares entities), or more than one of the limits
    /// above.
    static QString fault(const QString& text);
};
