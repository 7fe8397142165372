// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QString>

#include <string>

/// A text in the form that the host's editing core accepts. A value type; any thread.
class MVHOST_EXPORT VString
{
public:
    VString() = default;
    /// Takes a path with forward slashes, or any other text.
    explicit VString(const QString& text);

    /// Returns the text as a wide string with the platform's own directory separators.
    std::wstring toPath() const;

private:
    QString m_text;
};
