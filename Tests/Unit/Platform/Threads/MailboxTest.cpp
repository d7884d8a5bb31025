#include "Platform/Threads/Mailbox.h"
#include "Support/WaitFor.h"

#include <QThread>

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

namespace quorvane {

TEST(Mailbox, callsOnItsOwnThreadInTheOrderOfPosting)
{
    Mailbox mailbox;
    std::vector<int> called;
    QThread *thread = nullptr;
    std::thread([&] {
        for (int number = 0; number < 3; ++number) {
            mailbox.post([&called, &thread, number] {
                called.push_back(number);
                thread = QThread::currentThread();
            });
        }
    }).join();
    EXPECT_TRUE(called.empty());
    EXPECT_TRUE(waitFor([&] { return called.size() == 3; }));
    EXPECT_EQ(called, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(thread, QThread::currentThread());
}

TEST(Mailbox, whatComesTooLateIsDroppedWithWhatItHolds)
{
    const auto held = std::make_shared<bool>(false);
    {
        Mailbox mailbox;
        mailbox.post([held] { *held = true; });
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_FALSE(*held);
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace quorvane
