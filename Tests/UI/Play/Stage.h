#pragma once

#include "UI/Play/Deed.h"
#include "UI/Play/SettingsSight.h"

namespace quorvane {

/// The real windows with a real manager, a library and a service, on which deeds are done and looked at as somebody
/// does who sees, or hears, nothing but the windows. Every fault is a line that says what was shown and what was so.
/// What is done in a part of the window, or from outside, is in a file of that name: StageGallery.cpp and so on.
class Stage : public SettingsSight
{
  public:
    Stage();

    /// Shows the window over a library of a few albums.
    void raise();

    /// Does it, waits for its end, and looks at everything. Empty when all is well.
    [[nodiscard]] QString play(const Deed &deed);
    /// What took long in the last deed; empty when nothing did. A machine that is shared does so now and then.
    [[nodiscard]] const QString &lateFrame() const { return m_lateFrame; }

  private:
    /// Does it; what went wrong in the doing itself.
    [[nodiscard]] QString act(const Deed &deed);
    [[nodiscard]] QString actInGallery(const Deed &deed);
    [[nodiscard]] QString actInPreview(const Deed &deed);
    [[nodiscard]] QString actInSidebar(const Deed &deed);
    [[nodiscard]] QString actInSettings(const Deed &deed);
    void actFromOutside(const Deed &deed);
    [[nodiscard]] QString openPicture(quint32 number);
    [[nodiscard]] QString openByKey();
    [[nodiscard]] QString closePreview();
    [[nodiscard]] QString upscale();
    [[nodiscard]] QString pressOnTile(const Deed &deed);
    [[nodiscard]] QString deleteTile(quint32 number);
    [[nodiscard]] QString deleteByKey();
    [[nodiscard]] QString bringBack();
    [[nodiscard]] QString takePromptBack();
    [[nodiscard]] QString type(quint32 number);
    [[nodiscard]] QString undo();
    [[nodiscard]] QString generate();
    [[nodiscard]] QString promptFromOutside(quint32 number);
    void settingFromOutside(quint32 number);
    void keyFromOutside(quint32 number);

    bool clickOnTile(QQuickItem *tile, const QString &button);
    bool clickSeen(const QString &name);
    bool clickItem(const QQuickItem *item);
    bool usePrompt();

    [[nodiscard]] QString differences() const;
    /// Waits until the pictures on the disk are these.
    [[nodiscard]] QString expectOnDisk(QStringList expected, const QString &what) const;

    /// Small and plain; painting would take most of the time.
    [[nodiscard]] static QByteArray plainPicture(int shade);

    static inline const QStringList kPrompts{u"a lake"_s, u"a wood"_s, u"a tower"_s, QString()};

    int m_made = 0;
    QList<QStringList> m_deleted; ///< What each deletion in the window took from the disk, and can be brought back.
    QString m_lateFrame;
};

} // namespace quorvane
