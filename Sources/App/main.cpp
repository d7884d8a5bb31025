#include "App/Program.h"

int main(int argc, char **argv)
{
    return quorvane::runProgram(argc, argv);
}
