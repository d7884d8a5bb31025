// Kills the program at random moments of all that changes files, and looks at what is left each time.

#include "Faults/FaultFixture.h"
#include "Support/Files.h"

#include <QElapsedTimer>
#include <QImage>
#include <QJsonDocument>
#include <QProcess>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// A picture that does not compress, so that writing it takes a while.
QImage noise(QSize size, quint32 seed)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    random.fillRange(reinterpret_cast<quint32 *>(image.bits()), image.sizeInBytes() / 4);
    return image;
}

/// Everything in a home that must not get lost.
struct Holdings
{
    std::map<QString, QByteArray> pictures; ///< By their names in the library.
    std::map<QString, QString> prompts;
    std::map<QString, QString> links;
    std::map<QString, QString> favorites; ///< Each with an empty text.
    std::map<QString, QString> keys;
    std::map<QString, QString> settings;
};

Holdings holdingsOf(const FaultHome &home)
{
    Holdings found{.pictures = {},
                   .prompts = home.prompts(),
                   .links = home.links(),
                   .favorites = {},
                   .keys = home.keys(),
                   .settings = {}};
    const QStringList names = QDir(home.library()).entryList({u"*.png"_s, u"*.jpg"_s}, QDir::Files);
    for (const QString &name : names) {
        found.pictures.emplace(name, contentOf(home.library() + '/'_L1 + name));
    }
    for (const QString &name : home.favorites()) {
        found.favorites.emplace(name, QString());
    }
    for (const char *name : {"lastPrompt", "intervalMinutes", "fourKEnabled", "upscaleMethod", "providerOverride",
                             "selectedModel_grok", "fromAnotherVersion"}) {
        found.settings.emplace(QLatin1String(name), home.setting(QLatin1String(name)));
    }
    return found;
}

/// One run of the program, and which names it may change in what there was.
struct Command
{
    enum class Kind { Generate, Upscale, Delete, Favorite, SetKey, DeleteKey, ChangeSetting, Set };

    Kind kind = Kind::Generate;
    bool isLocal = false; ///< How it enlarges.
    QStringList arguments = {};
    QByteArray input = {};
    QStringList pictures = {}; ///< Files, prompts, links and favourites.
    QStringList links = {};
    QStringList favorites = {};
    QStringList keys = {};
    QStringList settings = {};

    [[nodiscard]] bool makesPicture() const { return kind == Kind::Generate || kind == Kind::Upscale; }
};

/// Until the clock that names are made of says so. On a thread without an event loop.
void waitForNextSecond()
{
    const std::chrono::system_clock::time_point now = std::chrono::system_clock::now();
    std::this_thread::sleep_until(std::chrono::ceil<std::chrono::seconds>(now));
}

/// A home in which the program is killed again and again.
class KilledHome
{
  public:
    KilledHome(const FaultHome &home, quint32 seed)
        : m_home(home)
        , m_random(seed)
        , m_holdings(holdingsOf(home))
    {
    }

    [[nodiscard]] QRandomGenerator &random() { return m_random; }

    [[nodiscard]] Command next()
    {
        using Kind = Command::Kind;
        const auto kind = static_cast<Kind>(m_random.bounded(8));
        Command command{.kind = kind, .isLocal = m_random.bounded(3) == 0};
        // What was enlarged here already is not enlarged again, which would take as long as hundreds of other runs.
        const QString picture = somePicture(kind == Kind::Upscale ? kSmallBytes : kAnyBytes);
        const QString number = QString::number(m_random.bounded(1, 1000));
        switch (kind) {
        case Kind::Generate:
            command.arguments = {u"generate"_s, u"--prompt"_s, u"prompt "_s + number};
            command.settings = {u"lastPrompt"_s};
            break;
        case Kind::Upscale:
            command.arguments = {u"upscale"_s, picture};
            command.links = {picture};
            break;
        case Kind::Delete:
            command.arguments = {u"delete"_s, picture};
            command.pictures = withPartners(picture);
            command.links = linksTo(command.pictures);
            break;
        case Kind::Favorite:
            command.arguments = {u"favorite"_s, picture};
            command.favorites = {picture};
            break;
        case Kind::SetKey:
            command.arguments = {u"key"_s, u"set"_s, u"openai"_s};
            command.input = "KEY " + number.toUtf8();
            command.keys = {u"openai"_s};
            break;
        case Kind::DeleteKey:
            command.arguments = {u"key"_s, u"delete"_s, u"openai"_s};
            command.keys = {u"openai"_s};
            break;
        case Kind::ChangeSetting:
            command.arguments = {u"settings"_s, u"intervalMinutes"_s, number};
            command.settings = {u"intervalMinutes"_s};
            break;
        case Kind::Set:
            command.arguments = {u"set"_s, picture};
            break;
        }
        return command;
    }

    /// What the command took away or broke, a line each. What is there now is what must be there afterwards.
    [[nodiscard]] QStringList wrongAfter(const Command &command)
    {
        QStringList wrong;
        const Holdings now = holdingsOf(m_home);
        const auto compare = [&wrong](const char *what, const auto &before, const auto &after,
                                      const QStringList &changing) {
            for (const auto &[name, value] : before) {
                const auto found = after.find(name);
                if (!changing.contains(name) && (found == after.end() || found->second != value)) {
                    wrong.append(QLatin1String(what) + name);
                }
            }
        };
        compare("lost picture ", m_holdings.pictures, now.pictures, command.pictures);
        compare("lost prompt of ", m_holdings.prompts, now.prompts, command.pictures);
        compare("lost link of ", m_holdings.links, now.links, command.pictures + command.links);
        compare("lost favourite ", m_holdings.favorites, now.favorites, command.pictures + command.favorites);
        compare("lost key of ", m_holdings.keys, now.keys, command.keys);
        compare("lost setting ", m_holdings.settings, now.settings, command.settings);
        for (const auto &[name, content] : now.pictures) {
            const auto before = m_holdings.pictures.find(name);
            const bool isKnown = before != m_holdings.pictures.end() && before->second == content;
            if (!isKnown && QImage::fromData(content).isNull()) {
                wrong.append(u"half a picture is listed: "_s + name);
            }
        }
        const QString library = m_home.library();
        for (const auto &[file, isList] :
             {std::pair(library + u"/prompts.json"_s, false), std::pair(library + u"/variants.json"_s, false),
              std::pair(library + u"/favorites.json"_s, true), std::pair(m_home.keyFile(), false)}) {
            const QJsonDocument document = QJsonDocument::fromJson(contentOf(file));
            if (isList ? !document.isArray() : !document.isObject()) {
                wrong.append(u"no whole file: "_s + file);
            }
        }
        for (const QString &file : m_home.openedKeys()) {
            wrong.append(u"others may read "_s + file);
        }
        if (now.settings.at(u"lastPrompt"_s).isEmpty()) {
            wrong.append(u"no prompt is left"_s);
        }
        m_holdings = now;
        return wrong;
    }

  private:
    static constexpr qsizetype kSmallBytes = 1'000'000;
    static constexpr qsizetype kAnyBytes = std::numeric_limits<qsizetype>::max();

    /// The name of one whose file has no more bytes than that.
    [[nodiscard]] QString somePicture(qsizetype largest)
    {
        QStringList names;
        for (const auto &[name, content] : m_holdings.pictures) {
            if (content.size() <= largest) {
                names.append(name);
            }
        }
        return names.isEmpty() ? u"none.png"_s : names.at(m_random.bounded(names.size()));
    }

    [[nodiscard]] QStringList withPartners(const QString &picture) const
    {
        QStringList names{picture};
        for (const auto &[original, copy] : m_holdings.links) {
            if (original == picture || copy == picture) {
                names += {original, copy};
            }
        }
        return names;
    }

    /// The originals whose copies are among these: a copy that was enlarged once more goes with its own, and leaves the
    /// picture it was made from without a link.
    [[nodiscard]] QStringList linksTo(const QStringList &copies) const
    {
        QStringList originals;
        for (const auto &[original, copy] : m_holdings.links) {
            if (copies.contains(copy)) {
                originals.append(original);
            }
        }
        return originals;
    }

    const FaultHome &m_home;
    QRandomGenerator m_random;
    Holdings m_holdings;
};

} // namespace

class KillTest : public FaultFixture
{
  protected:
    KillTest()
    {
        service.setPictureMaker([](const QString &prompt, QSize /*size*/) {
            return noise({300, 200}, static_cast<quint32>(qHash(prompt)));
        });
        service.setEnlarger([](const QImage & /*original*/, QSize /*size*/) { return noise({600, 400}, 1); });
    }

    /// Grok's pictures are enlarged afterwards, so a generation writes two pictures, two prompts and a link.
    [[nodiscard]] static std::map<QString, QString> settings()
    {
        return {{u"providerOverride"_s, u"grok"_s}, {u"fourKEnabled"_s, u"true"_s}};
    }

    void start(QProcess &process, const Command &command, const FaultHome &home) const
    {
        process.setProcessEnvironment(environmentIn(home));
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(QStringLiteral(QUORVANE_PROGRAM), command.arguments);
        process.write(command.input);
        process.closeWriteChannel();
        process.waitForStarted();
    }

    /// Gives the commands as many kills as asked for in a home of its own.
    [[nodiscard]] Faults killing(int kills, quint32 seed) const
    {
        const Place place(settings());
        const FaultHome &home = place.home;
        KilledHome killed(home, seed);
        std::map<std::pair<Command::Kind, bool>, qint64> wholeMs; ///< How long each takes that is left alone.
        Faults found;
        while (found.happened < kills) {
            const Command command = killed.next();
            if (command.makesPicture()) {
                // Pictures of one second share a name, and the later one replaces the earlier; that is not tested here.
                waitForNextSecond();
                (void)runQuorvane({u"settings"_s, u"upscaleMethod"_s, command.isLocal ? u"local"_s : u"gemini"_s},
                                  environmentIn(home));
                (void)killed.wrongAfter({.settings = {u"upscaleMethod"_s}});
            }
            const auto known = wholeMs.find({command.kind, command.isLocal});
            QElapsedTimer clock;
            clock.start();
            QProcess process;
            start(process, command, home);
            ++found.tried;
            const int moment =
                known == wholeMs.end()
                    ? 30'000
                    : static_cast<int>(killed.random().bounded(static_cast<double>(known->second) * 1.2));
            if (process.waitForFinished(moment)) {
                wholeMs.insert({{command.kind, command.isLocal}, clock.elapsed()});
            } else {
                process.kill();
                process.waitForFinished();
                ++found.happened;
            }
            for (const QString &line : killed.wrongAfter(command)) {
                found.wrong.append(u"%1, run %2: %3"_s.arg(command.arguments.join(' '_L1)).arg(found.tried).arg(line));
            }
        }
        // What the killed ones left behind does not stand in the way of the next.
        const CommandRun last = runQuorvane({u"generate"_s, u"--prompt"_s, u"the last"_s}, environmentIn(home));
        if (last.status != 0) {
            found.wrong.append(u"the last: "_s + QString::fromUtf8(last.errors));
        }
        found.wrong += wrongAtNextStart(home);
        return found;
    }
};

TEST_F(KillTest, whateverTheMomentNothingEarlierIsLostAndNothingHalfIsListed)
{
    const int kills = isLongForm() ? 1000 : 12;
    const std::size_t homes = isLongForm() ? 4 : 2;
    const Faults found =
        each(homes, [&](std::size_t at) { return killing(kills / static_cast<int>(homes), 20260131 + at); });
    std::printf("[    KILLS ] %d of %d runs were killed, %lld findings\n", found.happened, found.tried,
                static_cast<long long>(found.wrong.size()));
    EXPECT_EQ(found.happened, kills);
    EXPECT_EQ(found.wrong.join('\n'_L1).toStdString(), "");
}

} // namespace quorvane
