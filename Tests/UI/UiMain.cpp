#include "UI/UiSession.h"

int main(int argc, char **argv)
{
    return quorvane::runUiTests<QGuiApplication>(argc, argv);
}
