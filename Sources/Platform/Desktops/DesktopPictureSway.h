#pragma once

#include "Platform/Desktops/DesktopPicture.h"

#include <QByteArray>

#include <optional>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The background through sway's IPC socket. sway answers "success" to nearly everything, so what can be checked is
/// checked here first. Its background process restarts at every change: the screens are grey for a moment.
class DesktopPictureSway : public DesktopPicture
{
  public:
    /// socketPath is what SWAYSOCK holds.
    DesktopPictureSway(QString socketPath, QString reason, std::chrono::milliseconds limit = kDesktopLimit);

    [[nodiscard]] QString name() const override { return u"sway"_s; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] QList<Screen> screens() override;
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;

    /// The active outputs in the answer to GET_OUTPUTS, in its order, each with the size of its current mode turned as
    /// the output is. Anything that is no such description is left out.
    [[nodiscard]] static QList<Screen> screensOf(const QByteArray &outputsJson);

    /// The first failure in the answer to RUN_COMMAND in sway's own words.
    [[nodiscard]] static Result<> outcomeOf(const QByteArray &resultsJson);

    /// Whether sway takes the path as it is. It hands the path to a word expansion that also runs commands, so only
    /// letters, digits and / _ . - are let through.
    [[nodiscard]] static bool isPlainPath(const QString &path);

    /// The command that gives one screen its picture; nothing when the screen's name cannot be written in a command
    /// without a second meaning. path must be plain.
    [[nodiscard]] static std::optional<QByteArray> commandFor(const QString &screenName, const QString &path);

  private:
    QString m_socketPath;
    QString m_reason;
    std::chrono::milliseconds m_limit;
};

} // namespace quorvane
