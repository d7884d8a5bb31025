// The demonstration service as a program: prints its base address and serves until it is told to end.

#include "demo-service/CertificateAuthority.h"
#include "demo-service/DemoService.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>

#include <sys/signalfd.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

using namespace quorvane;

namespace {

int fail(const QString &message)
{
    std::fprintf(stderr, "quorvane-demo-service: %s\n", qPrintable(message));
    return 1;
}

/// A descriptor that becomes readable when the process is asked to end. Must be called before the first thread starts,
/// because threads inherit what is blocked.
int endingSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

} // namespace

int main(int argc, char **argv)
{
    const int signalDescriptor = endingSignals();
    QCoreApplication application(argc, argv);

    const QCommandLineOption port(u"port"_s, u"Listen on <port>; 0 picks a free one."_s, u"port"_s, u"0"_s);
    const QCommandLineOption ipv6(u"ipv6"_s, u"Listen on ::1 instead of 127.0.0.1."_s);
    const QCommandLineOption tls(u"tls"_s, u"Speak https, by default with a certificate of "
                                           "an authority made for this run."_s);
    const QCommandLineOption certificate(u"certificate"_s, u"Certificate chain for --tls (PEM)."_s, u"file"_s);
    const QCommandLineOption key(u"key"_s, u"Key for --tls (PEM)."_s, u"file"_s);
    const QCommandLineOption authority(u"write-authority"_s,
                                       u"Write the made authority's certificate, for clients to trust."_s, u"file"_s);
    const QCommandLineOption misbehave(u"misbehave"_s,
                                       u"Misbehave, for example slow-drip:bytes=100,pause=5. One of: "_s +
                                           QString::fromLatin1(misbehaviourNames().join(", ")),
                                       u"name"_s);
    const QCommandLineOption untilStdinCloses(u"until-stdin-closes"_s, u"End when standard input closes."_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Speaks the request and answer shapes of the image services and paints the pictures itself."_s);
    parser.addHelpOption();
    parser.addOptions({port, ipv6, tls, certificate, key, authority, misbehave, untilStdinCloses});
    parser.process(application);

    DemoServiceOptions options;
    bool portIsNumber = false;
    options.port = parser.value(port).toUShort(&portIsNumber);
    if (!portIsNumber) {
        return fail(u"the port must be a number from 0 to 65535"_s);
    }
    if (parser.isSet(ipv6)) {
        options.address = QHostAddress::LocalHostIPv6;
    }
    if (parser.isSet(tls) && parser.isSet(certificate)) {
        options.tls = readServerTls(parser.value(certificate), parser.value(key));
        if (!options.tls) {
            return fail(u"cannot read the certificate and its key"_s);
        }
    } else if (parser.isSet(tls)) {
        CertificateAuthority made;
        options.tls = made.issue(CertificateAuthority::Request());
        if (!options.tls) {
            return fail(made.errorString());
        }
        QFile file(parser.value(authority));
        if (parser.isSet(authority) &&
            (!file.open(QIODevice::WriteOnly) || file.write(made.certificate().toPem()) < 0)) {
            return fail(file.errorString());
        }
    }

    DemoService service(options);
    if (!service.errorString().isEmpty()) {
        return fail(service.errorString());
    }
    if (parser.isSet(misbehave)) {
        const auto misbehaviour = misbehaviourFromText(parser.value(misbehave).toUtf8());
        if (!misbehaviour) {
            return fail(u"there is no such misbehaviour; see --help"_s);
        }
        service.setMisbehaviour(*misbehaviour);
    }

    const QSocketNotifier onSignal(signalDescriptor, QSocketNotifier::Read);
    QObject::connect(&onSignal, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    QSocketNotifier onInput(STDIN_FILENO, QSocketNotifier::Read);
    onInput.setEnabled(parser.isSet(untilStdinCloses));
    QObject::connect(&onInput, &QSocketNotifier::activated, &application, [] {
        std::array<char, 256> ignored{};
        if (read(STDIN_FILENO, ignored.data(), ignored.size()) <= 0) {
            QCoreApplication::quit();
        }
    });

    std::printf("%s\n", qPrintable(service.baseAddress().toString()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}
