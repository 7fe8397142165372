// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/VString.h"

#include <QDir>

VString::VString(const QString& text)
    : m_text(text)
{
}

std::wstring VString::toPath() const
{
    return QDir::toNativeSeparators(m_text).toStdWString();
}
