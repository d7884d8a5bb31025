#pragma once

#include "Support/CommandRun.h"
#include "Support/PrivateHome.h"
#include "demo-service/DemoService.h"

#include <QImage>

namespace quorvane {

using namespace Qt::StringLiterals;

class CommandsTest : public testing::Test
{
  protected:
    CommandsTest()
    {
        service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
            QImage image(8, 8, QImage::Format_RGB32);
            image.fill(Qt::darkCyan);
            return image;
        });
        environment = lonelyEnvironment(service.baseAddress().toString());
        environment.insert(u"XDG_DATA_DIRS"_s, u"/nonexistent"_s);
    }

    [[nodiscard]] CommandRun run(const QStringList &arguments, const QByteArray &input = {}) const
    {
        return runQuorvane(arguments, environment, input, home.path());
    }

    /// Generates one picture and returns its path.
    QString generate(const QString &prompt)
    {
        (void)run({u"key"_s, u"set"_s, u"gemini"_s}, "KEY");
        const CommandRun made = run({u"generate"_s, u"--prompt"_s, prompt, u"--json"_s});
        EXPECT_EQ(made.status, 0) << made.errors.constData();
        return made.json()["file"_L1].toString();
    }

    PrivateHome home;
    DemoService service;
    QProcessEnvironment environment;
};

} // namespace quorvane
