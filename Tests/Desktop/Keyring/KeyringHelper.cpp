#include "Platform/Secrets/SecretStore.h"
#include "Storage/Keychain.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>

#include <qt6keychain/keychain.h>

#include <cstdio>

#include <unistd.h>

using namespace Qt::StringLiterals;

// migrate                  moves the old keys as a launch does, prints the milliseconds it took, and then runs the
// event
//                          loop until standard input ends
// write ACCOUNT TYPE TEXT  stores an item as a program with QtKeychain does; TYPE is text or binary
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();

    if (arguments.value(1) == u"migrate"_s) {
        QElapsedTimer timer;
        timer.start();
        const bool isPatient = arguments.value(2) == u"patient"_s;
        const auto store =
            quorvane::makeSecretStore(isPatient ? std::chrono::seconds(10) : quorvane::kSecretStorePatience);
        quorvane::Keychain::migrateLegacyKey(*store);
        std::printf("%lld\n", static_cast<long long>(timer.elapsed()));
        (void)std::fflush(stdout);
        const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
        QObject::connect(&input, &QSocketNotifier::activated, &QCoreApplication::quit);
        return QCoreApplication::exec();
    }

    if (arguments.value(1) == u"write"_s) {
        auto *job = new QKeychain::WritePasswordJob(u"app.quorvane.Quorvane"_s);
        job->setKey(arguments.value(2));
        if (arguments.value(3) == u"binary"_s) {
            job->setBinaryData(arguments.value(4).toUtf8());
        } else {
            job->setTextData(arguments.value(4));
        }
        QObject::connect(job, &QKeychain::Job::finished, [](QKeychain::Job *ended) {
            QCoreApplication::exit(ended->error() == QKeychain::NoError ? 0 : 1);
        });
        job->start();
        return QCoreApplication::exec();
    }
    return 2;
}
