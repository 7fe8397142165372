#pragma once

#include <QString>

class QByteArray;

/// Looks at fetched content before it gets its name. Internal to the library; stateless, any
/// thread.
class ContentCheck
{
public:
    ContentCheck() = delete;

    /// Bytes from the beginning that isPage() wants to see.
    static constexpr int pageBytes = 1024;

    /// Returns whether content that begins so is an HTML page (WHATWG MIME Sniffing, by its
    /// document type or root element), as sent by networks that ask for a login.
    static bool isPage(const QByteArray& beginning);
    /// Returns whether a file of that name, or at that address, is expected to be a page.
    static bool isPageName(const QString& name);

    /// Returns why the content of `file` cannot be what the suffix of `name` promises; empty if it
    /// can, and for suffixes that promise nothing. XML must be well-formed; .png, .jpg, .jpeg and
    /// .gif must be one of these formats, as clients choose the decoder by content; .zip must begin
    /// as an archive. `isUnreadable`, unless null, is set to whether the file cannot be read, in
    /// which case that is why.
    static QString fault(const QString& file, const QString& name, bool* isUnreadable = nullptr);
};
