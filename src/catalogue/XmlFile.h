// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QDomDocument;
class QDomElement;

/// Reads the XML files of catalogues, which are untrusted. Internal to the library. Stateless, any
/// thread.
class XmlFile
{
public:
    XmlFile() = delete;

    /// Parses a regular file (UTF-8) into `doc`. Returns false if it is missing, malformed, or
    /// exceeds the limits of XmlGuard; a warning in the log names the limit.
    static bool parse(const QString& path, QDomDocument& doc);

    /// Removes the first child of that name once it has been read: it takes some fifteen times the
    /// memory of its text, which then serves the next reading.
    static void release(QDomElement& root, const QString& tag);
};
