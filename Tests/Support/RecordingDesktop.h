#pragma once

#include "Platform/Desktops/DesktopPicture.h"
#include "Platform/Secrets/SecretStore.h"

#include <QStringList>

#include <atomic>
#include <mutex>
#include <optional>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A desktop that shows nothing and remembers what it was asked for. For tests of what stands above the seam; the
/// desktops behind it are tested as they are.
class RecordingDesktop final : public DesktopPicture
{
  public:
    [[nodiscard]] QString name() const override { return u"recording"_s; }
    [[nodiscard]] QString reason() const override { return u"a test asked for it"_s; }
    [[nodiscard]] bool endsWithTheProgram() override { return isGoneWithTheProgram; }
    [[nodiscard]] QList<Screen> screens() override { return attached; }
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> & /*screens*/) override
    {
        const std::lock_guard lock(m_mutex);
        m_shown.append(path);
        if (!question.isEmpty() && asking) {
            asking(question);
        }
        return refusal ? Failure{*refusal} : kDone;
    }
    void stopAsking() override { mayAsk = false; }

    /// The pictures that were asked for, in order.
    [[nodiscard]] QStringList shown() const
    {
        const std::lock_guard lock(m_mutex);
        return m_shown;
    }

    QList<Screen> attached{{u"ONE-1"_s, QSize(1920, 1080)}};
    std::optional<QString> refusal; ///< What every screen answers.
    QString question;               ///< What it tells of before, as one does that asks the user.
    bool isGoneWithTheProgram = false;
    std::atomic<bool> mayAsk = true;

  private:
    mutable std::mutex m_mutex;
    QStringList m_shown;
};

/// A password storage with nothing in it.
class EmptySecretStore final : public SecretStore
{
  public:
    [[nodiscard]] std::optional<QByteArray> read(const QString & /*service*/, const QString & /*account*/) override
    {
        return std::nullopt;
    }
    void remove(const QString & /*service*/, const QString & /*account*/) override {}
};

} // namespace quorvane
