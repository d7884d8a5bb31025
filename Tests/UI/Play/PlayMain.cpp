#include "UI/Play/FrameWatch.h"
#include "UI/UiSession.h"

int main(int argc, char **argv)
{
    return quorvane::runUiTests<quorvane::FrameWatch>(argc, argv);
}
