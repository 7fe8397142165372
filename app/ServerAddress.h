// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The address of a resource server, as users type it.
class ServerAddress
{
public:
    ServerAddress() = delete;

    /// Returns the address with its scheme and a trailing slash, as the product parameter
    /// "url_themeRootDir" wants it. Without a scheme it is https, or http on this computer. Empty
    /// for anything except a plain http or https address.
    static QString normalized(const QString& text);
};
