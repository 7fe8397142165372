#pragma once

#include <QString>

class QDomDocument;

/// Reads the XML files of catalogues, which nobody has vouched for. Internal to the library.
/// Stateless, any thread.
class XmlFile
{
public:
    XmlFile() = delete;

    /// Parses a regular file (UTF-8) into `doc`. False if it is missing, malformed, or beyond the
    /// limits of XmlGuard; a warning in the log names the limit.
    static bool parse(const QString& path, QDomDocument& doc);
};
