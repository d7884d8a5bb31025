#pragma once

#include "UI/ViewFixture.h"

#include <QMap>

namespace quorvane {

/// One thing that a user, or somebody beside him, does. number chooses among what there is to choose from at that
/// moment, so that a list of deeds stays playable when some of them are left out.
struct Deed
{
    enum class Kind {
        OpenAlbum,
        CloseAlbum,
        OpenPicture,
        ClosePreview,
        StepLeft,
        StepRight,
        StarTile,
        DeleteTile,
        ApplyTile,
        StarShown,
        UpscaleShown,
        ShowOriginal,
        UsePrompt,
        MoveByKey,
        StarByKey,
        DeleteByKey,
        OpenByKey,
        Type,
        Generate,
        SwitchFourK,
        SwitchTheme,
        Resize,
        PromptFromOutside,
        GenerateFromOutside,
        StarFromOutside,
        DeleteFromOutside,
        FileAdded,
        FileRemoved,
        Count
    };

    Kind kind = Kind::OpenAlbum;
    quint32 number = 0;
};

[[nodiscard]] QString nameOf(const Deed &deed);

/// The deeds of a seed.
[[nodiscard]] QList<Deed> deedsOf(quint32 seed, int count);

/// The real windows with a real manager, a library and a service, on which deeds are done and looked at as somebody
/// does who sees, or hears, nothing but the window. Every fault is a line that says what was shown and what was so.
class Stage : public ViewTest
{
  public:
    Stage();

    void TestBody() override {}

    /// Shows the window over a library of a few albums.
    void raise();

    /// Does it, waits for its end, and looks at everything. Empty when all is well.
    [[nodiscard]] QString play(const Deed &deed);

  private:
    // What is seen.
    [[nodiscard]] bool isPreviewOpen() const;
    [[nodiscard]] QList<QQuickItem *> tiles(const QString &prefix) const;
    /// The tile with the keyboard's ring, if it is in sight.
    [[nodiscard]] QQuickItem *ringedTile() const;
    [[nodiscard]] QString editorText() const;

    /// Does it; what went wrong in the doing itself.
    [[nodiscard]] QString act(const Deed &deed);
    [[nodiscard]] QString deleteByKey();
    [[nodiscard]] QString deleteTile(quint32 number);
    [[nodiscard]] QString generate();
    [[nodiscard]] QString pressInPreview(const QString &button);
    [[nodiscard]] QString openPicture(quint32 number);
    [[nodiscard]] QString closePreview();
    bool clickOnTile(QQuickItem *tile, const QString &button);
    bool clickSeen(const QString &name);
    bool clickItem(const QQuickItem *item);

    // What is so, against what is seen. Each gives what differs.
    [[nodiscard]] QString differences() const;
    [[nodiscard]] QString albumsDiffer() const;
    [[nodiscard]] QString tilesDiffer() const;
    [[nodiscard]] QString previewDiffers() const;
    [[nodiscard]] QString sidebarDiffers() const;
    [[nodiscard]] QString filesDiffer() const;
    [[nodiscard]] QString spokenDiffers() const;

    [[nodiscard]] QStringList picturesOnDisk() const;
    /// What deleting the picture takes with it.
    [[nodiscard]] QStringList withPartner(const QString &path) const;
    /// Waits until the pictures on the disk are these.
    [[nodiscard]] QString expectOnDisk(QStringList expected, const QString &what) const;

    bool m_isTyping = false; ///< The editor holds what the user typed and nobody has used yet.
    int m_made = 0;
};

} // namespace quorvane
