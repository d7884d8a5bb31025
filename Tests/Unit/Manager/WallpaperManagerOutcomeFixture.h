#pragma once

#include "Manager/SettingsKeys.h"
#include "Platform/Threads/Worker.h"
#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"
#include "Upscaling/Image/UpscaleErrors.h"

#include <QPromise>

namespace quorvane {

using namespace Qt::StringLiterals;

class WallpaperManagerOutcomeTest : public ManagerTest
{
  protected:
    /// An upscale on this machine that goes on when the test says so.
    struct Held
    {
        std::function<void(UpscaleProgress)> progress;
        QPromise<void> end;

        void finish()
        {
            if (!end.future().isFinished()) {
                end.finish();
            }
        }
    };

    WallpaperManagerOutcomeTest()
    {
        EXPECT_TRUE(Keychain::save(u"K"_s, u"gemini"_s));
        EXPECT_TRUE(Keychain::save(u"K"_s, u"grok"_s));
        store(SettingsKeys::kUpscaleMethod, u"local"_s);
        localUpscale = [this](QByteArray image, std::stop_token stop,
                              std::function<void(UpscaleProgress)> progress) -> QCoro::Task<EncodedImage> {
            auto one = std::make_shared<Held>();
            one->progress = std::move(progress);
            one->end.start();
            held.push_back(one);
            {
                const std::stop_callback finish(stop, [one] { one->finish(); });
                QFuture<void> end = one->end.future();
                co_await EndOf(std::move(end));
            }
            if (stop.stop_requested()) {
                throw UpscaleStopped();
            }
            co_return EncodedImage{"4K of " + image, u"png"_s};
        };
    }

    /// The n-th upscale on this machine that was begun.
    [[nodiscard]] Held &upscale(std::size_t n)
    {
        EXPECT_TRUE(waitFor([this, n] { return held.size() > n; }));
        return *held.at(n);
    }

    [[nodiscard]] OperationResult resultOf(quint64 operation) const
    {
        const auto found = std::find_if(results.begin(), results.end(), [operation](const OperationResult &each) {
            return each.operation == operation;
        });
        EXPECT_NE(found, results.end());
        return found == results.end() ? OperationResult{} : *found;
    }

    std::vector<std::shared_ptr<Held>> held;
};

} // namespace quorvane
