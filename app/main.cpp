// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mveditor: a miniature slideshow editor. It embeds the resource lists as an editor would, and
// serves host developers as a template.

#include "CommandLine.h"
#include "EditorProgram.h"

#ifdef Q_OS_WIN
#include "ParentConsole.h"
#endif

int main(int argc, char** argv)
{
#ifdef Q_OS_WIN
    ParentConsole::attach();
#endif
    CommandLine commandLine;
    return EditorProgram(commandLine).run(argc, argv);
}
