// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>

/// Returns whether Qt finds a type by this name, as queued connections by name need.
inline bool isMetaType(const char* name)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QMetaType::type(name) != QMetaType::UnknownType;
#else
    return QMetaType::fromName(name).isValid();
#endif
}
