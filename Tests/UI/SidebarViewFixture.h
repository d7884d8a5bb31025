#pragma once

#include "Manager/SettingsKeys.h"
#include "UI/ViewFixture.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace quorvane {

/// The main window, looked at for its sidebar.
class SidebarView : public ViewTest
{
  protected:
    void openWith(const QStringList &keys)
    {
        for (const QString &id : keys) {
            EXPECT_TRUE(Keychain::save(u"KEY"_s, id));
        }
        start();
        ASSERT_NE(open(), nullptr);
    }
    [[nodiscard]] QString promptOfNewest() const
    {
        const QJsonObject prompts = QJsonDocument::fromJson(sideFile("prompts.json")).object();
        return prompts[imageName(manager->history().value(0))].toString();
    }
    /// The smallest window, with everything shown that takes room, after a generation that failed with that message.
    void failInTheSmallestWindow(const QByteArray &message)
    {
        store(SettingsKeys::kLastPrompt, u"a lake"_s);
        store(SettingsKeys::kAutoEnabled, true);
        store(SettingsKeys::kFourKEnabled, true);
        openWith({u"gemini"_s});
        window->setProperty("trayShown", false);
        window->resize(window->minimumSize());
        Misbehaviour misbehaviour(Misbehaviour::Kind::ErrorObject);
        misbehaviour.text = message;
        service.setMisbehaviour(misbehaviour);
        manager->generateAndSet();
        manager->waitUntilIdle();
        ASSERT_TRUE(manager->isError());
        ASSERT_TRUE(waitFor([&] { return isSeen(u"status"_s) && window->height() == window->minimumHeight(); }));
    }
    [[nodiscard]] QColor symbolColor() const { return find(u"statusSymbol"_s)->property("color").value<QColor>(); }
};

} // namespace quorvane
