#pragma once

#include <QString>

/// Looks at a document from a server before the DOM reader sees it. Internal to the library.
///
/// The DOM reader expands entities without a limit (130 KB become 4 GB) and walks nested elements
/// recursively (a few thousand levels end the process), and makes some 200 bytes of every tag and
/// attribute. A document that asks for too much of that counts as malformed. One pass over the
/// text, no allocation, no parsing: what it lets through can still be malformed.
///
/// QXmlStreamReader (Qt 5.15) would have to read first what is to be refused. Processor time on one
/// machine, of the guard and of the same checks on that reader: 0.015 s and 0.25 s for a catalogue
/// of 300,000 items (30 MB, whose DOM takes 0.6 s); 0 s and 0.7 s for 20,000 attributes on one
/// element, 0.001 s and 20 s for 100,000 (1 MB), as it compares each with all before it; 0 s and
/// 0.8 s with 350 MB for a million entities. Deep nesting costs neither anything.
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
