// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

class FuzzTarget;

/// Feeds a fuzzer's corpus to its target once, in builds without libFuzzer. The arguments after the
/// first name inputs, or folders of them. Prints the name of each input before its run, so that the
/// last one printed is that of a failing input. Returns the exit status.
int feedCorpus(std::unique_ptr<FuzzTarget> (*makeTarget)(), int argc, char** argv);
