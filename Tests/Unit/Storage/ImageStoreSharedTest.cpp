#include "Unit/Storage/SharedStorageFixture.h"

#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"
#include "Support/Files.h"
#include "Support/InMemory.h"
#include "Support/PrivateHome.h"

#include <atomic>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

void savePrompts(int writer)
{
    for (int number = 0; number < kWritesEach; ++number) {
        EXPECT_TRUE(ImageStore::savePrompt(u"prompt"_s, nameOf(writer, number)));
    }
}

} // namespace

TEST(ImageStoreShared, threadsWritingAtOnceLoseNoPrompt)
{
    const InMemory inMemory;
    const PrivateHome home;
    std::vector<std::thread> threads;
    for (int writer = 0; writer < kWriters; ++writer) {
        threads.emplace_back(savePrompts, writer);
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(readTextMap(ImageStore::promptsPath()).size(), std::size_t(kWriters * kWritesEach));
}

TEST(ImageStoreShared, processesWritingAtOnceLoseNoPrompt)
{
    const InMemory inMemory;
    const PrivateHome home;
    std::vector<pid_t> children;
    for (int writer = 0; writer < kWriters; ++writer) {
        children.push_back(inProcess([writer] { savePrompts(writer); }));
    }
    for (const pid_t child : children) {
        EXPECT_TRUE(endedWell(child));
    }
    EXPECT_EQ(readTextMap(ImageStore::promptsPath()).size(), std::size_t(kWriters * kWritesEach));
}

TEST(ImageStoreShared, deletionsBesideOtherWritersLoseNothingOfTheirs)
{
    const InMemory inMemory;
    const PrivateHome home;
    for (int number = 0; number < kWritesEach; ++number) {
        EXPECT_TRUE(ImageStore::savePrompt(u"old"_s, nameOf(9, number)));
        EXPECT_TRUE(ImageStore::saveFavorite(nameOf(9, number)));
        EXPECT_TRUE(ImageStore::saveVariantLink(nameOf(9, number), nameOf(8, number)));
    }
    const pid_t deleting = inProcess([] {
        for (int number = 0; number < kWritesEach; ++number) {
            EXPECT_TRUE(ImageStore::deleteImage(nameOf(9, number)));
        }
    });
    for (int number = 0; number < kWritesEach; ++number) {
        EXPECT_TRUE(ImageStore::savePrompt(u"new"_s, nameOf(0, number)));
        EXPECT_TRUE(ImageStore::saveFavorite(nameOf(0, number)));
        EXPECT_TRUE(ImageStore::saveVariantLink(nameOf(0, number), nameOf(1, number)));
    }
    EXPECT_TRUE(endedWell(deleting));
    const TextMap prompts = readTextMap(ImageStore::promptsPath());
    const TextMap links = readTextMap(ImageStore::variantsPath());
    const QStringList favorites = readTextList(ImageStore::favoritesPath());
    EXPECT_EQ(prompts.size(), std::size_t(kWritesEach));
    EXPECT_EQ(links.size(), std::size_t(kWritesEach));
    EXPECT_EQ(favorites.size(), kWritesEach);
    for (int number = 0; number < kWritesEach; ++number) {
        EXPECT_TRUE(prompts.contains(nameOf(0, number)) && links.contains(nameOf(0, number)) &&
                    favorites.contains(nameOf(0, number)));
    }
}

TEST(ImageStoreShared, aReaderBesideAWriterSeesEveryFileWhole)
{
    const InMemory inMemory;
    const PrivateHome home;
    ASSERT_TRUE(ImageStore::saveImage(u"a.png"_s, QByteArray(300'000, 'a')));
    EXPECT_TRUE(ImageStore::savePrompt(QString(20'000, 'a'_L1), u"a.png"_s));
    std::atomic<bool> done = false;
    std::thread writer([&done] {
        for (int round = 0; round < 30; ++round) {
            const char letter = round % 2 == 0 ? 'b' : 'a';
            (void)ImageStore::saveImage(u"a.png"_s, QByteArray(300'000, letter));
            EXPECT_TRUE(ImageStore::savePrompt(QString(20'000, QLatin1Char(letter)), u"a.png"_s));
        }
        done = true;
    });
    int half = 0;
    int rounds = 0;
    while (!done) {
        const QByteArray image = contentOf(ImageStore::directory() + u"/a.png"_s);
        const TextMap prompts = readTextMap(ImageStore::promptsPath());
        const bool whole = image.size() == 300'000 && image.count(image.front()) == image.size() &&
                           prompts.size() == 1 && ImageStore::allImages().size() == 1;
        half += whole ? 0 : 1;
        ++rounds;
    }
    writer.join();
    EXPECT_EQ(half, 0) << "of " << rounds;
    EXPECT_GT(rounds, 0);
}

} // namespace quorvane
