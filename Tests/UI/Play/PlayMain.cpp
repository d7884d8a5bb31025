#include "Support/InMemory.h"
#include "UI/Play/FrameWatch.h"
#include "UI/UiSession.h"

int main(int argc, char **argv)
{
    // Each letter that is typed is stored, and what was stored is compared.
    const quorvane::InMemory inMemory;
    return quorvane::runUiTests<quorvane::FrameWatch>(argc, argv);
}
