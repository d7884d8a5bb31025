#include "Platform/Threads/TimeLimit.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace quorvane {

TEST(TimeLimit, givesTheResultOfWorkThatEndsInTime)
{
    const auto result = withinLimit(std::chrono::seconds(20), [](const std::stop_token &) { return 7; });
    EXPECT_EQ(result, 7);
}

TEST(TimeLimit, whatTheWorkThrowsIsThrownHere)
{
    const auto work = [](const std::stop_token &) -> int { throw std::runtime_error("no"); };
    EXPECT_THROW((void)withinLimit(std::chrono::seconds(20), work), std::runtime_error);
}

TEST(TimeLimit, workThatHangsIsGivenUpAndToldSo)
{
    auto release = std::make_shared<std::promise<void>>();
    auto told = std::make_shared<std::promise<bool>>();
    std::future<bool> wasTold = told->get_future();
    const auto result = withinLimit(std::chrono::milliseconds(50), [release, told](const std::stop_token &stop) {
        release->get_future().wait();
        told->set_value(stop.stop_requested());
        return 7;
    });
    EXPECT_EQ(result, std::nullopt);
    release->set_value();
    ASSERT_EQ(wasTold.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    EXPECT_TRUE(wasTold.get());
}

TEST(TimeLimit, aBrokenPipeDoesNotEndTheProgram)
{
    const auto result = withinLimit(std::chrono::seconds(20), [](const std::stop_token &) { return ::raise(SIGPIPE); });
    EXPECT_EQ(result, 0);
}

} // namespace quorvane
