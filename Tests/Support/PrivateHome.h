#pragma once

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QTemporaryDir>

#include <array>
#include <utility>
#include <vector>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A home of the test's own for as long as the object lives: HOME and the XDG folders point into a fresh temporary
/// folder, its language is that of the sources, and what they were before comes back at the end.
class PrivateHome
{
  public:
    PrivateHome()
    {
        point("HOME", path());
        point("XDG_CONFIG_HOME", path() + u"/.config"_s);
        point("XDG_DATA_HOME", path() + u"/.local/share"_s);
        point("XDG_STATE_HOME", path() + u"/.local/state"_s);
        point("XDG_CACHE_HOME", path() + u"/.cache"_s);
        point("LC_ALL", u"C.UTF-8"_s);
    }
    ~PrivateHome()
    {
        for (const auto &[name, value] : m_before) {
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
        }
    }
    PrivateHome(const PrivateHome &) = delete;
    PrivateHome &operator=(const PrivateHome &) = delete;

    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString library() const { return path() + u"/Pictures/Quorvane"_s; }

  private:
    void point(const char *name, const QString &value)
    {
        m_before.emplace_back(name, qEnvironmentVariableIsSet(name) ? qgetenv(name) : QByteArray());
        qputenv(name, value.toLocal8Bit());
    }

    QTemporaryDir m_folder;
    std::vector<std::pair<const char *, QByteArray>> m_before;
};

} // namespace quorvane
