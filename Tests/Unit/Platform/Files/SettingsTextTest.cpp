#include "Platform/Files/SettingsText.h"

#include "Support/Files.h"

#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What QSettings reads from a file of those bytes.
class Oracle
{
  public:
    explicit Oracle(const QByteArray &bytes)
    {
        EXPECT_TRUE(putFile(m_path, bytes));
        m_settings.emplace(m_path, QSettings::IniFormat);
    }
    [[nodiscard]] QSettings &settings() { return *m_settings; }
    [[nodiscard]] QVariant value(const QString &key) const { return m_settings->value(key); }

    /// The file, after QSettings wrote it.
    [[nodiscard]] QByteArray written()
    {
        m_settings->sync();
        return contentOf(m_path);
    }

  private:
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"a.conf"_s);
    std::optional<QSettings> m_settings;
};

/// A text of what makes trouble: quotes, separators, escapes, numbers behind them, other scripts.
QString randomText(QRandomGenerator &random)
{
    static const QStringList pieces{u"a"_s,      u"Z"_s,  u"7"_s, u" "_s,  u"\""_s, u"\\"_s, u";"_s,    u","_s,
                                    u"="_s,      u"@"_s,  u"%"_s, u"\n"_s, u"\t"_s, u"\r"_s, u"\x01"_s, u"\x7f"_s,
                                    u"\u00e4"_s, u"水"_s, u"🌊"_s, u"["_s,  u"]"_s,  u"#"_s,  u"'"_s,    u"General"_s};
    QString text;
    for (quint32 left = random.bounded(12U); left > 0; --left) {
        text += pieces.at(random.bounded(static_cast<int>(pieces.size())));
    }
    return text;
}

} // namespace

TEST(SettingsText, whatQSettingsWroteIsRead)
{
    QRandomGenerator random(20);
    QStringList texts;
    Oracle oracle("[General]\nother=1\n\n[Window]\nkey1=not this\n");
    for (int index = 0; index < 400; ++index) {
        texts.append(randomText(random));
        oracle.settings().setValue(u"key%1"_s.arg(index), texts.last());
    }
    oracle.settings().setValue(u"nsfwEnabled"_s, true);
    oracle.settings().setValue(u"intervalMinutes"_s, qint64{45});
    const SettingsText content(oracle.written());
    for (int index = 0; index < texts.size(); ++index) {
        EXPECT_EQ(content.value(u"key%1"_s.arg(index)), texts.at(index));
    }
    EXPECT_EQ(content.value(u"nsfwEnabled"_s), u"true"_s);
    EXPECT_EQ(content.value(u"intervalMinutes"_s), u"45"_s);
}

TEST(SettingsText, whatIsSetIsReadByQSettingsAndByItself)
{
    QRandomGenerator random(4);
    const QList<QByteArray> files{
        {},
        "[General]\n",
        "\xef\xbb\xbf[General]\nlastPrompt=before\n",
        "; mine\nlastPrompt=\"one; \n two\" ; why\nz=1\n",
        "[Window]\nlastPrompt=not this\nx=1\n",
        "[Window]\r\nx=1\r\n[general]\r\nlastPrompt=before\r\nlastPrompt=again\r\n",
        "[General]",
        "lastPrompt",
        "lastPrompt=\"never closed\n[Window]\nx=1\n",
    };
    for (const QByteArray &file : files) {
        SettingsText content(file);
        for (int round = 0; round < 60; ++round) {
            const QString text = randomText(random);
            content.set(u"lastPrompt"_s, text);
            EXPECT_EQ(content.value(u"lastPrompt"_s), text) << content.bytes().constData();
            const QVariant read = Oracle(content.bytes()).value(u"lastPrompt"_s);
            EXPECT_EQ(read.typeId(), QMetaType::QString) << content.bytes().constData();
            EXPECT_EQ(read.toString(), text) << content.bytes().constData();
        }
        content.remove(u"lastPrompt"_s);
        EXPECT_FALSE(content.value(u"lastPrompt"_s));
        EXPECT_FALSE(Oracle(content.bytes()).value(u"lastPrompt"_s).isValid()) << content.bytes().constData();
    }
}

TEST(SettingsText, nothingButTheLineOfTheKeyChanges)
{
    const QByteArray before = "; a note\n[General]\nnsfwEnabled=false\nlastPrompt=a, b\nthis is no line\n"
                              "[Geometry]\nwindow=@ByteArray(\\x1\\0)\nnsfwEnabled=yes\n\n[%General]\nlastPrompt=c\n";
    SettingsText content(before);
    content.set(u"nsfwEnabled"_s, u"true"_s);
    EXPECT_EQ(content.bytes(), QByteArray(before).replace("nsfwEnabled=false", "nsfwEnabled=true"));
    content.set(u"nsfwEnabled"_s, u"false"_s);
    EXPECT_EQ(content.bytes(), before);
    content.set(u"fourKEnabled"_s, u"true"_s);
    EXPECT_EQ(content.bytes(), QByteArray(before).replace("[General]\n", "[General]\nfourKEnabled=true\n"));
    content.remove(u"fourKEnabled"_s);
    content.remove(u"absent"_s);
    EXPECT_EQ(content.bytes(), before);
}

TEST(SettingsText, theSameTextLeavesTheFileAsItIs)
{
    for (const char *line : {"lastPrompt=\"a lake\"\n", "lastPrompt=a\\x20lake\n", "lastPrompt =  a lake  \n"}) {
        SettingsText content{QByteArray(line)};
        content.set(u"lastPrompt"_s, u"a lake"_s);
        EXPECT_EQ(content.bytes(), QByteArray(line));
    }
    const QString half(QChar(0xd83c)); // Half a character cannot be written as UTF-8, but as a number.
    SettingsText content;
    content.set(u"lastPrompt"_s, half + u"a"_s);
    EXPECT_EQ(content.value(u"lastPrompt"_s), half + u"a"_s);
}

TEST(SettingsText, olderAndHandWrittenFormsAreRead)
{
    const QList<std::pair<QByteArray, std::optional<QString>>> cases{
        {"a, b,c", u"a, b, c"_s},
        {"\"a, b\"", u"a, b"_s},
        {"\\x6c34\\xe4", u"水ä"_s},
        {"@ByteArray(bytes)", u"bytes"_s},
        {"@String(text)", u"text"_s},
        {"@@home", u"@home"_s},
        {"@home", u"@home"_s},
        {"@Invalid()", std::nullopt},
        {"", QString()},
        {"\"\"", QString()},
        {"a\\\nb", u"ab"_s},
        {"\\101\\?\\'", u"A?'"_s},
    };
    for (const auto &[bytes, text] : cases) {
        const QByteArray file = "[General]\nlastPrompt=" + bytes + "\n";
        EXPECT_EQ(SettingsText(file).value(u"lastPrompt"_s), text) << bytes.constData();
        const QVariant oracle = Oracle(file).value(u"lastPrompt"_s);
        const QString told =
            oracle.typeId() == QMetaType::QStringList ? oracle.toStringList().join(u", "_s) : oracle.toString();
        EXPECT_EQ(oracle.isValid() ? std::optional(told) : std::nullopt, text) << bytes.constData();
    }
}

TEST(SettingsText, anyBytesAreReadLikeQSettingsReadsThem)
{
    // What a person or a broken disk leaves there: lines of the characters that mean something.
    constexpr QByteArrayView kPieces("ab=\"\\;,[]\n\r @x1 General");
    QRandomGenerator random(7);
    for (int round = 0; round < 600; ++round) {
        QByteArray file;
        for (quint32 left = random.bounded(60U); left > 0; --left) {
            file += kPieces[random.bounded(static_cast<int>(kPieces.size()))];
        }
        SettingsText content(file);
        content.set(u"lastPrompt"_s, u"a lake"_s);
        EXPECT_EQ(content.value(u"lastPrompt"_s), u"a lake"_s) << file.constData();
        EXPECT_EQ(Oracle(content.bytes()).value(u"lastPrompt"_s).toString(), u"a lake"_s) << file.constData();
    }
}

} // namespace quorvane
