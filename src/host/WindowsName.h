// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QChar>

class QString;

/// The names of files that Windows can store, as its documentation lists them under "Naming Files,
/// Paths, and Namespaces". Stateless, any thread.
class MVHOST_EXPORT WindowsName
{
public:
    WindowsName() = delete;

    /// Returns whether names may contain that character.
    static bool canContain(QChar character);
    /// Returns whether a file or folder can have that name on Windows, and then has only that name:
    /// no separator, colon (alternate streams, drives), wildcard or control character, no blank or
    /// dot at the end, which Windows drops, and no device such as "NUL" or "com1.txt".
    static bool isStorable(const QString& name);
    /// Returns whether every component, between slashes, is storable. Empty components and "." are
    /// ignored, since they name nothing.
    static bool isStorablePath(const QString& path);
};
