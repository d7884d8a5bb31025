#pragma once

#include "UI/ViewFixture.h"

namespace quorvane {

/// The main window as somebody sees it, or hears it, who knows nothing else; and the same against what is so. Every
/// difference is a line that says what was shown and what was so.
/// What a part of the window shows is in a file of that name: SightGallery.cpp and so on.
class Sight : public ViewTest
{
  public:
    void TestBody() override {}

  protected:
    [[nodiscard]] bool isPreviewOpen() const;
    /// The tiles that can be pointed at, where they lie now.
    [[nodiscard]] QList<QQuickItem *> tiles(const QString &prefix) const;
    /// The tile with the keyboard's ring, if it is in sight.
    [[nodiscard]] QQuickItem *ringedTile() const;
    [[nodiscard]] QString editorText() const;
    [[nodiscard]] bool isInEditor() const;

    /// What a user does who does not see all of the item: he scrolls.
    static void bringIntoSight(const QQuickItem *item);

    [[nodiscard]] QStringList picturesOnDisk() const;
    /// What deleting the picture takes with it.
    [[nodiscard]] QStringList withPartner(const QString &path) const;

    // What is so, against what is seen. Each gives what differs.
    [[nodiscard]] QString filesDiffer() const;
    [[nodiscard]] QString albumsDiffer() const;
    [[nodiscard]] QString tilesDiffer() const;
    [[nodiscard]] QString previewDiffers() const;
    [[nodiscard]] QString sidebarDiffers() const;
    [[nodiscard]] QString lookDiffers() const;
    [[nodiscard]] QString spokenDiffers() const;

  private:
    /// The pictures of the album whose title is shown; nothing when there is no such album.
    [[nodiscard]] std::optional<QStringList> imagesOfOpenAlbum() const;
    [[nodiscard]] static QString enabledness(bool isEnabled);
    [[nodiscard]] QString spokenNameDiffers(const QString &url, const QString &name) const;
    [[nodiscard]] QString buttonsOfPreviewDiffer(const QString &url) const;
};

} // namespace quorvane
