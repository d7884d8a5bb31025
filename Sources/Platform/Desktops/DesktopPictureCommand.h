#pragma once

#include "Platform/Desktops/DesktopPicture.h"

#include <QDeadlineTimer>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The background through a program of the user's, called once per screen as PROGRAM FILE SCREEN-NAME, without a
/// shell. Exit status 0 is success; otherwise what it wrote to standard error is the description.
///
/// The screens are those of another desktop object. Where that has none, for example without any display, there is
/// one screen named "default" of size 0 x 0, so that the program is called once and may do as it thinks best.
class DesktopPictureCommand : public DesktopPicture
{
  public:
    DesktopPictureCommand(QString program, QString reason, std::unique_ptr<DesktopPicture> screenSource,
                          std::chrono::milliseconds limit = kDesktopLimit);

    [[nodiscard]] QString name() const override { return u"command"_s; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] QList<Screen> screens() override;

    /// All calls together may take the limit; then the running program and what it started are killed.
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;

  private:
    [[nodiscard]] Result<> run(const QStringList &arguments, const QDeadlineTimer &deadline) const;

    QString m_program;
    QString m_reason;
    std::unique_ptr<DesktopPicture> m_screenSource;
    std::chrono::milliseconds m_limit;
};

} // namespace quorvane
