// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QByteArray;
class QFile;

/// Inspects fetched content before the file gets its name. Internal to the library;
/// stateless, any thread.
class ContentCheck
{
public:
    ContentCheck() = delete;

    /// Number of leading bytes that isPage() needs.
    static constexpr int pageBytes = 1024;

    /// Returns whether content with this beginning is an HTML page (WHATWG MIME Sniffing, by its
    /// document type or root element), as sent by networks that require a login.
    static bool isPage(const QByteArray& beginning);
    /// Returns whether a file of that name, or at that address, is expected to be an HTML page.
    static bool isPageName(const QString& name);

    /// Returns why the content of `file`, which is open, contradicts the suffix of `name`; empty if
    /// it does not, and for suffixes without requirements. XML must be well-formed; .png, .jpg,
    /// .jpeg and .gif must have one of these formats, as clients choose the decoder by content;
    /// .zip must begin like an archive. `isUnreadable`, unless null, is set to whether the file
    /// cannot be read, in which case that is the reason returned.
    static QString fault(QFile& file, const QString& name, bool* isUnreadable = nullptr);
};
