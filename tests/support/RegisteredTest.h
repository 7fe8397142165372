// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// A test class in a program of tests. Several share a program, since to compile and link one for
/// each takes longer than to run them, but each run is a process of its own:
///
///     tests_catalogue tst_ItemIndex [ARGUMENTS OF QT TEST...]
///
/// A program with one test needs no name. MV_TEST_MAIN makes the objects, before main() runs.
class RegisteredTest
{
public:
    using Run = int (*)(int argc, char** argv);

    /// `file`: the source of the test (__FILE__), from which it has its name. `run` gets the
    /// arguments as main() does, with the name of the test as the first, and returns the exit
    /// status.
    RegisteredTest(const char* file, Run run);
};
