#pragma once

#include "Manager/WallpaperManager.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/Network/HttpClient.h"
#include "Platform/System/PowerEvents.h"
#include "Platform/System/Screens.h"
#include "Providers/ProviderError.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/RecordingDesktop.h"
#include "Support/Results.h"
#include "Support/TestClock.h"
#include "demo-service/DemoService.h"

#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

#include <memory>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A manager in a home of its own, with the demonstration service for all three services and a clock that goes on one
/// second at each look, so that no two pictures share a name unless a test wants it.
class ManagerTest : public testing::Test
{
  protected:
    ManagerTest()
    {
        clock.secondsPerLook = 1;
        for (const char *variable : kAddresses) {
            qputenv(variable, service.baseAddress().toEncoded());
        }
        service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
            QImage image(8, 8, QImage::Format_RGB32);
            image.fill(Qt::darkCyan);
            return image;
        });
    }
    ~ManagerTest() override
    {
        manager.reset();
        for (const char *variable : kAddresses) {
            qunsetenv(variable);
        }
    }

    /// The program starts.
    WallpaperManager &start()
    {
        manager.reset();
        http = std::make_unique<HttpClient>();
        defaults.reset(); // Writes what is pending.
        defaults = std::make_unique<UserDefaults>();
        ManagerServices services{.defaults = defaults.get(),
                                 .http = http.get(),
                                 .desktop = &desktop,
                                 .legacyKeys = &secrets,
                                 .localUpscale = localUpscale,
                                 .clock = &clock,
                                 .powerEvents = &powerEvents,
                                 .screens = &screens};
        manager = std::make_unique<WallpaperManager>(std::move(services));
        QObject::connect(manager.get(), &WallpaperManager::statusChanged, manager.get(),
                         [this, each = manager.get()] { statuses.append(each->status()); });
        QObject::connect(manager.get(), &WallpaperManager::operationEnded, manager.get(),
                         [this](const OperationResult &ended) {
                             result = ended;
                             results.append(ended);
                         });
        return *manager;
    }

    /// The button is pressed, and all is waited for.
    void generate(const QString &prompt = u"a lake"_s)
    {
        statuses.clear();
        manager->setPrompt(prompt);
        manager->generateAndSet();
        manager->waitUntilIdle();
    }

    /// What a setting file says before the program starts.
    static void store(const QString &key, const QVariant &value)
    {
        UserDefaults before;
        before.set(key, value);
        EXPECT_TRUE(before.sync());
    }

    /// An image in the library, older the larger age is.
    [[nodiscard]] QString putImage(const QString &name) const
    {
        return valueOf(ImageStore::saveImage(name, "image " + name.toUtf8()));
    }

    [[nodiscard]] QStringList files() const { return QDir(home.library()).entryList(QDir::Files, QDir::Name); }

    [[nodiscard]] QByteArray sideFile(const char *name) const
    {
        return contentOf(home.library() + '/'_L1 + QLatin1String(name));
    }

    static constexpr std::array kAddresses{"QUORVANE_GEMINI_BASE_URL", "QUORVANE_XAI_BASE_URL",
                                           "QUORVANE_OPENAI_BASE_URL"};

    PrivateHome home;
    DemoService service;
    RecordingDesktop desktop;
    EmptySecretStore secrets;
    TestClock clock;
    PowerEvents powerEvents;
    Screens screens;
    LocalUpscale localUpscale = [](QByteArray image, std::stop_token,
                                   std::function<void(UpscaleProgress)> progress) -> QCoro::Task<EncodedImage> {
        progress({1, 1, std::nullopt});
        co_return EncodedImage{"4K of " + image, u"png"_s};
    };
    std::unique_ptr<HttpClient> http;
    std::unique_ptr<UserDefaults> defaults;
    std::unique_ptr<WallpaperManager> manager;
    QStringList statuses;
    OperationResult result;         ///< Of the operation that ended last.
    QList<OperationResult> results; ///< Of all, in the order in which they ended.
};

} // namespace quorvane
