// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// How the fixtures of downloads and previews configure transfers. ctest runs their tests twice:
/// with the defaults, and with several transfers at a time and no pauses.
class TransfersSideBySide
{
public:
    TransfersSideBySide() = delete;

    /// Returns the number of transfers at a time: MV_TEST_TRANSFERS in the environment, or 1.
    static int count() { return qMax(1, qEnvironmentVariableIntValue("MV_TEST_TRANSFERS")); }
    static bool isOn() { return count() > 1; }
};
