#include "Unit/Storage/SharedStorageFixture.h"

#include "Storage/Keychain.h"
#include "Support/InMemory.h"
#include "Support/PrivateHome.h"

#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(KeychainShared, threadsAndProcessesWritingAtOnceLoseNoKey)
{
    const InMemory inMemory;
    const PrivateHome home;
    const auto saveKeys = [](int writer) {
        for (int number = 0; number < kWritesEach; ++number) {
            EXPECT_TRUE(Keychain::save(u"key"_s, nameOf(writer, number)));
        }
    };
    const pid_t child = inProcess([&] { saveKeys(0); });
    std::thread thread(saveKeys, 1);
    saveKeys(2);
    thread.join();
    EXPECT_TRUE(endedWell(child));
    EXPECT_EQ(Keychain::readAll().size(), std::size_t(3 * kWritesEach));
}

TEST(KeychainShared, ofSeveralThatSaveWhatIsAbsentTheFirstWins)
{
    const InMemory inMemory;
    const PrivateHome home;
    std::vector<pid_t> children;
    for (int writer = 0; writer < kWriters; ++writer) {
        children.push_back(inProcess([writer] {
            for (int number = 0; number < kWritesEach; ++number) {
                const QString id = QString::number(number);
                if (!Keychain::saveIfAbsent(QString::number(writer), id)) {
                    ::_exit(1);
                }
                const auto winner = Keychain::load(id);
                (void)Keychain::saveIfAbsent(u"late"_s, id);
                if (Keychain::load(id) != winner) {
                    ::_exit(1);
                }
            }
        }));
    }
    for (const pid_t child : children) {
        EXPECT_TRUE(endedWell(child));
    }
    EXPECT_EQ(Keychain::readAll().size(), std::size_t(kWritesEach));
}

} // namespace quorvane
