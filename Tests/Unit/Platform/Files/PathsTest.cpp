#include "Platform/Files/Paths.h"

#include "Support/PrivateHome.h"

#include <QFile>

#include <gtest/gtest.h>

#include <string_view>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(Paths, theHomeIsTheOneOfTheEnvironment)
{
    const PrivateHome home;
    EXPECT_EQ(Paths::home(), home.path());
    qputenv("HOME", home.path().toLocal8Bit() + "/a/../b//");
    EXPECT_EQ(Paths::home(), home.path() + u"/b"_s);
}

TEST(Paths, whereTheEnvironmentNamesNoHomeItIsTheAccounts)
{
    const PrivateHome home;
    const passwd *account = ::getpwuid(::geteuid());
    if (account == nullptr || account->pw_dir == std::string_view("/") ||
        !QFileInfo(QFile::decodeName(account->pw_dir)).isDir()) {
        GTEST_SKIP() << "this account has no home";
    }
    for (const char *nothing : {"", "home", "./a"}) {
        qputenv("HOME", nothing);
        EXPECT_EQ(Paths::home(), QFile::decodeName(account->pw_dir)) << nothing;
    }
    qunsetenv("HOME");
    EXPECT_EQ(Paths::home(), QFile::decodeName(account->pw_dir));
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(Paths::configHome(), QFile::decodeName(account->pw_dir) + u"/.config"_s);
}

} // namespace quorvane
