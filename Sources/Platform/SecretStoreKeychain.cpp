#include "Platform/SecretProbe.h"
#include "Platform/SecretStore.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <qt6keychain/keychain.h>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

/// A start of the program waits no longer than this for a storage that does not answer or has nothing for us.
constexpr auto kProbeLimit = 150ms;
/// And no longer than this, in all, for one that holds something, which happens at one launch.
constexpr auto kJobsLimit = 2000ms;

class KeychainSecretStore final : public SecretStore
{
  public:
    std::optional<QByteArray> read(const QString &service, const QString &account) override
    {
        std::optional<QByteArray> bytes;
        if (m_jobsLeft > 0ms && m_probe.isReadable(service, account)) {
            auto *job = new QKeychain::ReadPasswordJob(service);
            job->setKey(account);
            run(job, [&bytes, job] {
                if (job->error() == QKeychain::NoError) {
                    bytes = job->binaryData();
                }
            });
        }
        return bytes;
    }

    void remove(const QString &service, const QString &account) override
    {
        if (m_jobsLeft > 0ms && m_probe.isReadable(service, account)) {
            auto *job = new QKeychain::DeletePasswordJob(service);
            job->setKey(account);
            run(job, [] {});
        }
    }

  private:
    /// Calls finished when the job ends in time. A job cannot be taken back once it runs: the storage's answer would
    /// find it gone. So it belongs to itself, deletes itself whenever it ends, and by then nothing listens any more.
    template <typename Finished> void run(QKeychain::Job *job, const Finished &finished)
    {
        QElapsedTimer timer;
        timer.start();
        QEventLoop loop;
        bool ended = false;
        QObject::connect(job, &QKeychain::Job::finished, &loop, [&] {
            ended = true;
            finished();
            loop.quit();
        });
        QTimer::singleShot(m_jobsLeft, &loop, &QEventLoop::quit);
        job->start();
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        m_jobsLeft -= std::chrono::milliseconds(timer.elapsed());
        if (!ended) {
            // Jobs run one after another, so the next would only wait for this one.
            m_jobsLeft = 0ms;
        }
    }

    SecretProbe m_probe{kProbeLimit};
    std::chrono::milliseconds m_jobsLeft = kJobsLimit;
};

} // namespace

std::unique_ptr<SecretStore> makeSecretStore()
{
    return std::make_unique<KeychainSecretStore>();
}

} // namespace quorvane
