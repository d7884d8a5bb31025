// The windows follow at once what a command changes over the bus.

#include "ShellFixture.h"

#include "App/Command/Services.h"
#include "App/Control/ControlService.h"
#include "Platform/Bus/SessionBus.h"
#include "Support/WaitFor.h"
#include "Views/Settings/AdvancedModel.h"
#include "Views/Sidebar/SidebarModel.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace quorvane {

/// The application's inside in the test's own process, with what its windows show.
class ShellSidebarTest : public ShellTest
{
  protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        if (IsSkipped() || HasFatalFailure()) {
            return;
        }
        qputenv("DBUS_SESSION_BUS_ADDRESS", session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s).toUtf8());
        m_bus = std::make_unique<SessionBus>();
        m_control = std::make_unique<ControlService>(*m_bus);
        ASSERT_EQ(m_control->claim(), ControlService::Claim::Owned);
        m_services = std::make_unique<Services>(Services::Life::OneCommand);
        m_control->serve(*m_services);
        sidebar.setManager(&m_services->manager);
        advanced.setManager(&m_services->manager);
    }
    void TearDown() override
    {
        if (m_control) {
            m_control->release();
        }
        m_services.reset();
        m_control.reset();
        m_bus.reset();
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    }

  private:
    std::unique_ptr<SessionBus> m_bus;
    std::unique_ptr<ControlService> m_control;
    std::unique_ptr<Services> m_services;

  protected:
    /// The keys are read beside the main thread, so what is missing follows a moment later.
    bool isMissing(const QStringList &keys)
    {
        return waitFor([&] { return sidebar.missingKeys() == keys; });
    }

    SidebarModel sidebar;
    AdvancedModel advanced;
};

TEST_F(ShellSidebarTest, aKeyThatIsSetIsNotMissingAnyMore)
{
    EXPECT_TRUE(isMissing(QStringList{u"Gemini"_s}));
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    EXPECT_TRUE(isMissing(QStringList()));
    ASSERT_EQ(command({u"key"_s, u"delete"_s, u"gemini"_s}).status, 0);
    EXPECT_TRUE(isMissing(QStringList{u"Gemini"_s}));
}

TEST_F(ShellSidebarTest, settingsArriveInTheWindows)
{
    const auto set = [this](const char *key, const char *value) {
        return command({u"settings"_s, QLatin1String(key), QLatin1String(value)}).status;
    };
    ASSERT_EQ(set("providerOverride", "openai"), 0);
    ASSERT_EQ(set("selectedModel_openai", "gpt-image-1"), 0);
    ASSERT_EQ(set("fourKEnabled", "on"), 0);
    EXPECT_EQ(sidebar.upscaleHint(), u"+ Gemini 4K"_s);
    const QStringList both{u"OpenAI"_s, u"Gemini (for 4K upscale)"_s};
    EXPECT_TRUE(isMissing(both));
    ASSERT_EQ(set("upscaleMethod", "local"), 0);
    EXPECT_EQ(sidebar.upscaleHint(), u"+ Local 4K"_s);
    EXPECT_TRUE(isMissing(QStringList{u"OpenAI"_s}));
    EXPECT_EQ(advanced.upscaleMethodIndex(), 1);
    ASSERT_EQ(command({u"settings"_s, u"--unset"_s, u"upscaleMethod"_s}).status, 0);
    EXPECT_EQ(advanced.upscaleMethodIndex(), 0);
    EXPECT_TRUE(isMissing(both));
    ASSERT_EQ(set("selectedModel_openai", "gpt-image-2"), 0);
    EXPECT_EQ(sidebar.upscaleHint(), QString());
    EXPECT_TRUE(isMissing(QStringList{u"OpenAI"_s}));
}

} // namespace quorvane
