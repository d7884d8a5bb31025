#include "Platform/Secrets/SecretProbe.h"
#include "Platform/Secrets/SecretStore.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <qt6keychain/keychain.h>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

/// So long, in all, may reading and deleting take where something is there, which happens at one launch.
constexpr auto kJobsLimit = 2000ms;

class KeychainSecretStore final : public SecretStore
{
  public:
    explicit KeychainSecretStore(std::chrono::milliseconds patience)
        : m_probe(patience)
    {
    }

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
        QTimer limit;
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
        limit.start(m_jobsLeft);
        job->start();
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        m_jobsLeft -= std::chrono::milliseconds(timer.elapsed());
        if (!ended) {
            // Jobs run one after another, so the next would only wait for this one.
            m_jobsLeft = 0ms;
        }
    }

    SecretProbe m_probe;
    std::chrono::milliseconds m_jobsLeft = kJobsLimit;
};

} // namespace

std::unique_ptr<SecretStore> makeSecretStore(std::chrono::milliseconds patience)
{
    return std::make_unique<KeychainSecretStore>(patience);
}

} // namespace quorvane
