#include "Platform/PrintableText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(PrintableText, harmlessTextsStayAsTheyAre)
{
    for (const QString &text :
         {QString(), u"Wallpaper set!"_s, u"Straße — 水 «é»"_s, u"שלום \u200f!"_s, u"👩\u200d🚀 🇩🇪"_s}) {
        EXPECT_EQ(printable(text), text) << text.toStdString();
    }
}

TEST(PrintableText, noTextClearsTheScreenOrSetsTheTitle)
{
    EXPECT_EQ(printable(u"\x1b[2J\x1b[H"_s), u"␛[2J␛[H"_s);
    EXPECT_EQ(printable(u"\x1b]0;owned\x07"_s), u"␛]0;owned␇"_s);
    EXPECT_EQ(printable(u"\u009b2J\u009d0;owned\u009c"_s), u"�2J�0;owned�"_s);
    EXPECT_EQ(printable(u"a\x7f\x08\tb"_s), u"a␡␈␉b"_s);
}

TEST(PrintableText, noTextForgesALine)
{
    EXPECT_EQ(printable(u"no\nWallpaper set!"_s), u"no␊Wallpaper set!"_s);
    EXPECT_EQ(printable(u"no\r\nyes\u2028or\u2029so\u0085on\vand\f"_s), u"no␍␊yes␤or␤so�on␋and␌"_s);
}

TEST(PrintableText, aZeroCharacterCutsNothing)
{
    EXPECT_EQ(printable(QString(u"before"_s + QChar(u'\0') + u"after"_s)), u"before␀after"_s);
}

TEST(PrintableText, noTextTurnsTheDirectionOfItsNeighbours)
{
    for (char16_t unit : {0x202a, 0x202b, 0x202c, 0x202d, 0x202e, 0x2066, 0x2067, 0x2068, 0x2069}) {
        EXPECT_EQ(printable(QString(u"a"_s + QChar(unit) + u"b"_s)), u"a�b"_s) << static_cast<int>(unit);
    }
}

TEST(PrintableText, halfACharacterIsReplacedAndAWholeOneIsNot)
{
    const QString rocket = u"🚀"_s;
    EXPECT_EQ(printable(rocket.left(1) + u"a"_s + rocket + rocket.right(1)), u"�a🚀�"_s);
    EXPECT_EQ(printable(rocket.left(1)), u"�"_s);
}

TEST(PrintableText, everyCharacterComesOutAsOneThatTerminalsShow)
{
    for (int unit = 0; unit <= 0xffff; ++unit) {
        const QString shown = printable(QString(QChar(unit)));
        ASSERT_EQ(shown.size(), 1) << unit;
        EXPECT_NE(shown.at(0).category(), QChar::Other_Control) << unit;
        EXPECT_NE(shown.at(0).category(), QChar::Separator_Line) << unit;
        EXPECT_NE(shown.at(0).category(), QChar::Separator_Paragraph) << unit;
        EXPECT_FALSE(shown.at(0).isSurrogate()) << unit;
    }
}

TEST(PrintableText, jsonKeepsItsValuesAndHoldsNothingThatATerminalObeys)
{
    QString all;
    for (int unit = 0; unit < 0x3000; ++unit) {
        all += QChar(unit);
    }
    all += u"🚀"_s;
    const QJsonDocument document(QJsonArray{all});
    const QByteArray json = printableJson(document.toJson(QJsonDocument::Compact));
    EXPECT_EQ(QJsonDocument::fromJson(json).array().at(0).toString(), all);
    const QString shown = QString::fromUtf8(json);
    EXPECT_EQ(shown, printable(shown));
}

} // namespace quorvane
