// The program quorvane-demo-service, as scripts use it.

#include "demo-service/CertificateAuthority.h"

#include <QProcess>
#include <QSslSocket>
#include <QTcpSocket>
#include <QUrl>

#include <gtest/gtest.h>

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
    const QUrl address = startAndReadAddress(program, {QStringLiteral("--until-stdin-closes")});
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
    const QString authority = folder.filePath(QStringLiteral("authority.pem"));
    QProcess program;
    const QUrl address =
        startAndReadAddress(program, {QStringLiteral("--tls"), QStringLiteral("--write-authority"), authority});
    EXPECT_EQ(address.scheme(), QStringLiteral("https"));
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
    const QUrl address = startAndReadAddress(
        program, {QStringLiteral("--misbehave"), QStringLiteral("error-object:status=429,text=Later")});
    QTcpSocket socket;
    socket.connectToHost(address.host(), static_cast<quint16>(address.port()));
    const QByteArray answer = answerTo(socket);
    EXPECT_TRUE(answer.startsWith("HTTP/1.1 429") && answer.contains("Later")) << answer.toStdString();
    program.terminate();
    EXPECT_TRUE(program.waitForFinished());
}

TEST(DemoServiceProgram, refusesWhatItDoesNotKnow)
{
    for (const QStringList &arguments :
         {QStringList{QStringLiteral("--misbehave"), QStringLiteral("friendly")},
          QStringList{QStringLiteral("--port"), QStringLiteral("65536")}, QStringList{QStringLiteral("--unknown")}}) {
        QProcess program;
        program.start(QStringLiteral(DEMO_SERVICE_PROGRAM), arguments);
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 1) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(program.readAllStandardOutput().isEmpty());
        EXPECT_FALSE(program.readAllStandardError().isEmpty());
    }
}

} // namespace quorvane
