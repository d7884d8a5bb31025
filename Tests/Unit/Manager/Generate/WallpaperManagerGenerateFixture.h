#pragma once

#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

using namespace Qt::StringLiterals;

class WallpaperManagerGenerateTest : public ManagerTest
{
  protected:
    WallpaperManagerGenerateTest()
    {
        for (const char *id : {"gemini", "grok", "openai"}) {
            EXPECT_TRUE(Keychain::save(u"key of "_s + QLatin1String(id), QLatin1String(id)));
        }
    }

    [[nodiscard]] QString inLibrary(const char *name) const { return home.library() + '/'_L1 + QLatin1String(name); }

    static QByteArray bodyOf(const HttpRequest &request) { return request.body; }
};

} // namespace quorvane
