#include "App/Application/Program.h"

#ifdef QUORVANE_VIEWS
#include QUORVANE_VIEWS // "Views/Views.h", in a build that has the windows.
#endif

int main(int argc, char **argv)
{
    quorvane::SceneUrls windows;
#ifdef QUORVANE_VIEWS
    windows.install = quorvane::installViews;
#endif
    return quorvane::runProgram(argc, argv, windows);
}
