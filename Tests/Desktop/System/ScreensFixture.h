#pragma once

#include "Support/Desktop/OwnedProgram.h"

#include <gtest/gtest.h>

#include <memory>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A program with windows, on the display of an environment. Each of its lines is the number of changes that it was
/// told so far, and the screens as they then are; so the line after the next change also shows that there was none in
/// between.
inline std::unique_ptr<OwnedProgram> probe(QProcessEnvironment environment, const QString &platform,
                                           OwnedProgram::User user = OwnedProgram::User::Same)
{
    environment.insert(u"QT_QPA_PLATFORM"_s, platform);
    return std::make_unique<OwnedProgram>(QStringLiteral(SYSTEM_EVENTS_PROBE), QStringList{u"screens"_s}, environment,
                                          u"/"_s, user);
}

} // namespace quorvane
