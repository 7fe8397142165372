// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcessEnvironment>

/// Returns the environment of a program whose downloads have temporary names, as on systems that
/// lack files without one.
inline QProcessEnvironment withNamedParts()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
#ifdef FAULT_INJECTOR
    environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(FAULT_INJECTOR));
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0"));
    environment.insert(QStringLiteral("MV_FAULT_WITHOUT"), QStringLiteral("unnamed"));
#endif
    return environment;
}
