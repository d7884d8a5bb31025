#pragma once

#include "Platform/Desktops/DesktopPicture.h"

#include <memory>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The background by surfaces of our own behind everything else, for the compositors that offer zwlr_layer_shell_v1. It
/// is there for as long as the object is, so a program that ends at once refuses to set it. Changes without a frame in
/// between, follows the screens by itself, and sleeps while nothing happens.
///
/// Once drawn nothing of the picture is held here: the compositor has one buffer of each screen's size.
class DesktopPictureLayerShell : public DesktopPicture
{
  public:
    /// display is what WAYLAND_DISPLAY holds.
    DesktopPictureLayerShell(QString display, QString reason, ProgramLife life,
                             std::chrono::milliseconds limit = kDesktopLimit);
    ~DesktopPictureLayerShell() override;
    DesktopPictureLayerShell(const DesktopPictureLayerShell &) = delete;
    DesktopPictureLayerShell &operator=(const DesktopPictureLayerShell &) = delete;
    DesktopPictureLayerShell(DesktopPictureLayerShell &&) = delete;
    DesktopPictureLayerShell &operator=(DesktopPictureLayerShell &&) = delete;

    [[nodiscard]] QString name() const override { return u"layer-shell"_s; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] bool endsWithTheProgram() override { return true; }
    [[nodiscard]] QList<Screen> screens() override;

    /// All screens change or none does, as long as the compositor has them all.
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;

    /// Takes the backgrounds away, so that another program's are seen.
    void remove();

  private:
    struct Request;
    class Keeper;

    QString m_display;
    QString m_reason;
    ProgramLife m_life;
    std::chrono::milliseconds m_limit;
    std::unique_ptr<Keeper> m_keeper;
};

} // namespace quorvane
