// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mveditor-demo: the editor on the samples, which it serves itself. A script can drive its window.

#include "DemoCommandLine.h"
#include "DemoProgram.h"
#include "DemoWorld.h"

int main(int argc, char** argv)
{
    // It outlives the catalogue, which saves favourites in its folder when the process ends.
    static DemoWorld world;
    DemoCommandLine commandLine;
    return DemoProgram(commandLine, world).run(argc, argv);
}
