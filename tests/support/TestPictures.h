// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Pictures that tests take for people to look at and judge nothing by. Packing them takes a third
/// of such a test's time, so they are only taken on request.
class TestPictures
{
public:
    /// Returns whether the environment has MV_TEST_PICTURES.
    static bool areWanted() { return qEnvironmentVariableIsSet("MV_TEST_PICTURES"); }
};
