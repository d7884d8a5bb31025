#include "Unit/Storage/ImageStoreFixture.h"

#include "Storage/ImageStore.h"
#include "Support/Results.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(ImageStoreTest, newFilesAreAsOpenAsTheUserWantsThem)
{
    const auto modeOf = [](const QString &path) {
        struct stat status = {};
        return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0U;
    };
    const mode_t before = ::umask(0022);
    EXPECT_EQ(modeOf(valueOf(ImageStore::saveImage(u"open.png"_s, "x"))), 0644U);
    EXPECT_TRUE(ImageStore::saveFavorite(u"open.png"_s));
    ::umask(0077);
    EXPECT_EQ(modeOf(valueOf(ImageStore::saveImage(u"private.png"_s, "x"))), 0600U);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, at("private.png")));
    // One that is there keeps what it has.
    EXPECT_TRUE(ImageStore::saveFavorite(u"private.png"_s));
    ::umask(before);
    EXPECT_EQ(modeOf(at("prompts.json")), 0600U);
    EXPECT_EQ(modeOf(at("favorites.json")), 0644U);
}

} // namespace quorvane
