#pragma once

#include "TestedDesktop.h"

#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvane {

/// A desktop that a person logs in to, a program of its session that sets pictures, and what the screens then show.
class SessionDesktopFixture : public testing::Test
{
  protected:
    /// Prepares the desktop, and starts the program that sets pictures; the desktop itself is started by the test.
    /// Skips the test where the desktop is not wanted or not there.
    void prepare(const TestedDesktop &tested);
    void TearDown() override;

    /// Starts the program that sets pictures again, so that it knows nothing of what it did.
    void startProgram();

    /// Puts a picture at name as the library does: whole, in place of what was there.
    [[nodiscard]] QString save(const QString &name, int mark);

    /// Gives the program a path to set, and takes its answer: DesktopPictureProbe.cpp says what is in it.
    void ask(const QString &path);
    [[nodiscard]] QJsonObject answer();
    [[nodiscard]] QJsonObject set(const QString &path);

    /// Why setting the picture failed; empty when it did not.
    [[nodiscard]] std::string failureToSet(const QString &path);

    /// Why one of the screens does not come to show the picture with the mark; empty when all do.
    [[nodiscard]] std::string waitForPicture(int mark);

    /// Not before prepare() has made it.
    [[nodiscard]] RealDesktop &desktop() { return *m_desktop; }

  private:
    /// Why one screen does not show the picture, given where all screens are; empty when it does.
    [[nodiscard]] QString differenceOn(const QImage &screen, const QList<QRect> &areas, int mark) const;

    QTemporaryDir m_pictures;
    std::unique_ptr<RealDesktop> m_desktop;
    std::unique_ptr<OwnedProgram> m_probe;
};

} // namespace quorvane
