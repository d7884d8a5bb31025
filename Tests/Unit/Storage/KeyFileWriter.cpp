#include "Storage/Keychain.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

// Writes the key file in every way there is, under a umask that hides nothing, to be watched from outside.
int main()
{
    using quorvane::Keychain;
    ::umask(0);
    const bool isDone = Keychain::save(u"k1"_s, u"gemini"_s) && Keychain::save(u"k2"_s, u"gemini"_s) &&
                        Keychain::saveIfAbsent(u"k3"_s, u"grok"_s) && Keychain::remove(u"gemini"_s);
    return isDone ? 0 : 1;
}
