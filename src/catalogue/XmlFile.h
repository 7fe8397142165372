#pragma once

#include <QString>

class QDomDocument;
class QDomElement;

/// Reads the XML files of catalogues, which nobody has vouched for. Internal to the library.
/// Stateless, any thread.
class XmlFile
{
public:
    XmlFile() = delete;

    /// Parses a regular file (UTF-8) into `doc`. False if it is missing, malformed, or beyond the
    /// limits of XmlGuard; a warning in the log names the limit.
    static bool parse(const QString& path, QDomDocument& doc);

    /// Removes the first child of that name, which has been read, from a document of one's own: it
    /// takes some fifteen times the memory of its text, and what is read next can have that.
    static void release(QDomElement& root, const QString& tag);
};
