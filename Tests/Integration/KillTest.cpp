// Kills the program at random moments of many generations and looks at what is left each time.

#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/WaitFor.h"
#include "demo-service/DemoService.h"

#include <QElapsedTimer>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// A picture that does not compress, so that writing it takes a while.
QImage noise(const QString &prompt, QSize /*size*/)
{
    QImage image(900, 500, QImage::Format_RGB32);
    QRandomGenerator random(static_cast<quint32>(qHash(prompt)));
    random.fillRange(reinterpret_cast<quint32 *>(image.bits()), image.sizeInBytes() / 4);
    return image;
}

bool isWholeSideFile(const QString &path, bool isList)
{
    const QByteArray bytes = contentOf(path);
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    return bytes.isNull() || (error.error == QJsonParseError::NoError && document.isArray() == isList);
}

class KillTest : public testing::Test
{
  protected:
    KillTest()
    {
        service.setPictureMaker(noise);
        environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
        environment.insert(u"QUORVANE_GEMINI_BASE_URL"_s, service.baseAddress().toString());
        environment.insert(u"QUORVANE_XAI_BASE_URL"_s, service.baseAddress().toString());
        environment.insert(u"QUORVANE_WALLPAPER_COMMAND"_s, u"/bin/true"_s);
    }

    void start(QProcess &process, const QStringList &arguments) const
    {
        process.setProcessEnvironment(environment);
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(QStringLiteral(QUORVANE_PROGRAM), arguments);
        ASSERT_TRUE(process.waitForStarted());
    }

    void finish(const QStringList &arguments, const QByteArray &input = {})
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(QUORVANE_PROGRAM), arguments);
        process.write(input);
        process.closeWriteChannel();
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    }

    PrivateHome home;
    DemoService service;
    QProcessEnvironment environment;
};

} // namespace

TEST_F(KillTest, whateverTheMomentNothingEarlierIsLostAndNothingHalfIsListed)
{
    // Grok's pictures are enlarged by the service afterwards, so a run writes two pictures, two prompts and a link.
    finish({u"key"_s, u"set"_s, u"grok"_s}, "KEY OF GROK");
    finish({u"key"_s, u"set"_s, u"gemini"_s}, "KEY OF GEMINI");
    finish({u"settings"_s, u"providerOverride"_s, u"grok"_s});
    finish({u"settings"_s, u"fourKEnabled"_s, u"true"_s});
    const QString keyFile = home.path() + u"/Library/Application Support/Quorvane/keys.json"_s;
    const QByteArray keys = contentOf(keyFile);
    ASSERT_TRUE(keys.contains("KEY OF GROK"));

    QElapsedTimer whole;
    whole.start();
    finish({u"generate"_s, u"--prompt"_s, u"the first"_s});
    const qint64 wholeMs = whole.elapsed();

    const int runs = qgetenv("QUORVANE_SOAK") == "full" ? 200 : 12;
    QRandomGenerator random(20260131);
    TextMap prompts = readTextMap(ImageStore::promptsPath());
    std::map<QString, QByteArray> pictures;
    int killed = 0;
    for (int run = 0; run < runs; ++run) {
        // Pictures of one second share a name, and the later one replaces the earlier; that is not what is tested here.
        const qint64 second = QDateTime::currentSecsSinceEpoch();
        ASSERT_TRUE(waitFor([second] { return QDateTime::currentSecsSinceEpoch() > second; }));

        const QString prompt = u"prompt %1"_s.arg(run);
        QProcess process;
        start(process, {u"generate"_s, u"--prompt"_s, prompt});
        const auto moment = static_cast<int>(random.bounded(static_cast<double>(wholeMs) * 1.2));
        if (!process.waitForFinished(moment)) {
            process.kill();
            ASSERT_TRUE(process.waitForFinished());
            ++killed;
        }

        // Side files parse, and nothing that stood in them before is gone.
        EXPECT_TRUE(isWholeSideFile(ImageStore::promptsPath(), false)) << run;
        EXPECT_TRUE(isWholeSideFile(ImageStore::variantsPath(), false)) << run;
        EXPECT_EQ(contentOf(keyFile), keys) << run;
        const TextMap promptsNow = readTextMap(ImageStore::promptsPath());
        for (const auto &[name, text] : prompts) {
            ASSERT_TRUE(promptsNow.contains(name)) << run;
            EXPECT_EQ(promptsNow.at(name), text);
        }
        prompts = promptsNow;

        // Every picture that is listed is whole, and every earlier one is as it was.
        const QStringList listed = ImageStore::allImages();
        for (const auto &[path, content] : pictures) {
            EXPECT_EQ(contentOf(path), content) << run << " " << path.toStdString();
        }
        for (const QString &path : listed) {
            if (!pictures.contains(path)) {
                EXPECT_FALSE(QImage(path).isNull()) << run << " " << path.toStdString();
                pictures.emplace(path, contentOf(path));
            }
        }
        // The typed prompt is the one of this run or of the one before; never empty, never half.
        const QByteArray settings = contentOf(home.path() + u"/.config/Quorvane/Quorvane.conf"_s);
        EXPECT_TRUE(settings.contains("lastPrompt=")) << run;
        EXPECT_TRUE(settings.contains("fourKEnabled=true")) << run;
    }
    EXPECT_GT(killed, runs / 4) << "hardly any run was killed in its middle";
    // What the killed ones left behind does not stand in the way of the next.
    finish({u"generate"_s, u"--prompt"_s, u"the last"_s});
    EXPECT_GT(ImageStore::allImages().size(), 2);
}

} // namespace quorvane
