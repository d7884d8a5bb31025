#include "Storage/Keychain.h"

#include <sys/stat.h>

// Writes the key file in every way there is, under a umask that hides nothing, to be watched from outside.
int main()
{
    using quorvane::Keychain;
    ::umask(0);
    Keychain::save(QStringLiteral("k1"), QStringLiteral("gemini"));
    Keychain::save(QStringLiteral("k2"), QStringLiteral("gemini"));
    const bool isSaved = Keychain::saveIfAbsent(QStringLiteral("k3"), QStringLiteral("grok"));
    Keychain::remove(QStringLiteral("gemini"));
    return isSaved ? 0 : 1;
}
