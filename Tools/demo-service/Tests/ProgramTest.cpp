// The program quorvane-demo-service, as scripts use it.

#include "demo-service/CertificateAuthority.h"

#include <QProcess>
#include <QSslSocket>
#include <QTcpSocket>
#include <QUrl>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QUrl startAndReadAddress(QProcess &program, const QStringList &arguments)
{
    program.start(QStringLiteral(DEMO_SERVICE_PROGRAM), arguments);
    while (!program.canReadLine() && program.waitForReadyRead(20000)) {
    }
    return QUrl(QString::fromUtf8(program.readLine()).trimmed());
}

QByteArray answerTo(QTcpSocket &socket)
{
    socket.write("GET / HTTP/1.1\r\nHost: a\r\nConnection: close\r\n\r\n");
    while (socket.waitForReadyRead(20000)) {
    }
    return socket.readAll();
}

} // namespace

TEST(DemoServiceProgram, servesUntilItsInputCloses)
{
    QProcess program;
    const QUrl address = startAndReadAddress(program, {u"--until-stdin-closes"_s});
    QTcpSocket socket;
    socket.connectToHost(address.host(), static_cast<quint16>(address.port()));
    EXPECT_TRUE(answerTo(socket).startsWith("HTTP/1.1 404"));
    program.closeWriteChannel();
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST(DemoServiceProgram, endsInOrderWhenTerminated)
{
    QProcess program;
    EXPECT_TRUE(startAndReadAddress(program, {}).isValid());
    program.terminate();
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST(DemoServiceProgram, speaksTlsUnderAnAuthorityThatItWritesDown)
{
    const QTemporaryDir folder;
    const QString authority = folder.filePath(u"authority.pem"_s);
    QProcess program;
    const QUrl address = startAndReadAddress(program, {u"--tls"_s, u"--write-authority"_s, authority});
    EXPECT_EQ(address.scheme(), u"https"_s);
    QSslSocket socket;
    QSslConfiguration trust = QSslConfiguration::defaultConfiguration();
    trust.setCaCertificates(QSslCertificate::fromPath(authority));
    socket.setSslConfiguration(trust);
    socket.connectToHostEncrypted(address.host(), static_cast<quint16>(address.port()));
    ASSERT_TRUE(socket.waitForEncrypted()) << socket.errorString().toStdString();
    EXPECT_TRUE(answerTo(socket).startsWith("HTTP/1.1 404"));
    program.terminate();
    EXPECT_TRUE(program.waitForFinished());
}

TEST(DemoServiceProgram, misbehavesWhenTold)
{
    QProcess program;
    const QUrl address = startAndReadAddress(program, {u"--misbehave"_s, u"error-object:status=429,text=Later"_s});
    QTcpSocket socket;
    socket.connectToHost(address.host(), static_cast<quint16>(address.port()));
    const QByteArray answer = answerTo(socket);
    EXPECT_TRUE(answer.startsWith("HTTP/1.1 429") && answer.contains("Later")) << answer.toStdString();
    program.terminate();
    EXPECT_TRUE(program.waitForFinished());
}

TEST(DemoServiceProgram, refusesWhatItDoesNotKnow)
{
    for (const QStringList &arguments : {QStringList{u"--misbehave"_s, u"friendly"_s},
                                         QStringList{u"--port"_s, u"65536"_s}, QStringList{u"--unknown"_s}}) {
        QProcess program;
        program.start(QStringLiteral(DEMO_SERVICE_PROGRAM), arguments);
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 1) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(program.readAllStandardOutput().isEmpty());
        EXPECT_FALSE(program.readAllStandardError().isEmpty());
    }
}

} // namespace quorvane
