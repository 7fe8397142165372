// mveditor: a slideshow editor in small. It embeds the resource lists as an editor would, and is
// what a host developer copies from.

#include "CommandLine.h"
#include "EditorProgram.h"

int main(int argc, char** argv)
{
    CommandLine commandLine;
    return EditorProgram(commandLine).run(argc, argv);
}
