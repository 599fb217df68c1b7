#include "Quillary/Commands/CommandLine.h"

int main(int argumentCount, char** arguments)
{
    return Quillary::runCommandLine(argumentCount, arguments);
}
