#include "App/Application/Translations.h"

#include "App/Command/LibraryReport.h"
#include "Manager/IntervalLabel.h"
#include "Manager/Library/Album.h"
#include "Manager/Library/ImageRecords.h"
#include "Manager/MenuItems.h"
#include "Support/SpokenLanguage.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QDateTime kAfternoon(QDate(2026, 3, 7), QTime(14, 5, 59));

} // namespace

TEST(Translations, theFirstLanguageThatThereIsIsSpoken)
{
    const std::vector<std::pair<QStringList, const char *>> cases{
        {{u"de-CH"_s}, "de"},
        {{u"nl-NL"_s, u"fr-BE"_s}, "fr"},
        {{u"en-US"_s, u"de-DE"_s}, "en"},
        {{u"zh-CN"_s}, "zh_CN"},
        {{u"zh-Hans-CN"_s}, "zh_CN"},
        {{u"zh-SG"_s}, "zh_CN"},
        {{u"zh-TW"_s, u"ja-JP"_s}, "ja"}, // Not the script that it is written in there.
        {{u"zh-HK"_s}, "en"},
        {{u"tlh"_s}, "en"},
        {{}, "en"},
    };
    for (const auto &[languages, catalogue] : cases) {
        EXPECT_EQ(catalogueFor(languages), QLatin1String(catalogue)) << languages.join(','_L1).toStdString();
    }
}

TEST(Translations, theDirectionIsThatOfTheLanguage)
{
    EXPECT_EQ(directionFor({u"ar-EG"_s}), Qt::RightToLeft);
    EXPECT_EQ(directionFor({u"he-IL"_s, u"en-US"_s}), Qt::RightToLeft);
    EXPECT_EQ(directionFor({u"fa-IR"_s}), Qt::RightToLeft);
    EXPECT_EQ(directionFor({u"de-DE"_s, u"ar-EG"_s}), Qt::LeftToRight);
    EXPECT_EQ(directionFor({}), Qt::LeftToRight);
}

TEST(Translations, everyLanguageSaysTheMenuDifferently)
{
    QStringList said{menuItems({}, QLocale()).at(MenuItem::GenerateNow).text};
    for (const char *language : {"de", "es", "fr", "ja", "zh-CN"}) {
        const SpokenLanguage spoken{QLatin1String(language)};
        const QString text = menuItems({}, QLocale()).at(MenuItem::GenerateNow).text;
        EXPECT_FALSE(said.contains(text)) << language << ": " << text.toStdString();
        said.append(text);
    }
    EXPECT_EQ(menuItems({}, QLocale()).at(MenuItem::GenerateNow).text, said.first());
}

TEST(Translations, numbersChooseTheForm)
{
    const auto pictures = [](int count) {
        return QCoreApplication::translate("AlbumTile", "%1, %n pictures", nullptr, count).arg(u"a"_s);
    };
    const std::vector<std::tuple<const char *, const char *, const char *, const char *, const char *>> cases{
        {"en", "a, 1 picture", "a, 2 pictures", "1 hour", "2 hours"},
        {"de", "a, 1 Bild", "a, 2 Bilder", "1 Stunde", "2 Stunden"},
        {"es", "a, 1 imagen", "a, 2 imágenes", "1 hora", "2 horas"},
        {"fr", "a, 1 image", "a, 2 images", "1 heure", "2 heures"},
        {"ja", "a、画像1枚", "a、画像2枚", "1時間", "2時間"},
        {"zh-CN", "a，1 张图片", "a，2 张图片", "1 小时", "2 小时"},
    };
    for (const auto &[language, one, two, hour, hours] : cases) {
        const SpokenLanguage spoken{QLatin1String(language)};
        EXPECT_EQ(pictures(1).toStdString(), one);
        EXPECT_EQ(pictures(2).toStdString(), two);
        EXPECT_EQ(formatInterval(60).toStdString(), hour);
        EXPECT_EQ(formatInterval(120).toStdString(), hours);
    }
    const SpokenLanguage french(u"fr"_s);
    EXPECT_EQ(pictures(0).toStdString(), "a, 0 image"); // None is one there.
}

TEST(Translations, theSpecialAlbumsAreShownTranslatedAndPromptsNever)
{
    const SpokenLanguage german(u"de"_s);
    EXPECT_EQ(albumTitle(u"Favorites"_s, true), u"Favoriten"_s);
    EXPECT_EQ(albumTitle(u"Favorites"_s, false), u"Favorites"_s);
    EXPECT_EQ(albumTitle(u"Uncategorized"_s, false), u"Ohne Prompt"_s);
    EXPECT_EQ(albumTitle(u"Settings"_s, false), u"Settings"_s);
    // The identity that other programs read stays.
    const QJsonArray albums{
        QJsonObject{{u"id"_s, u"Favorites"_s}, {u"isFavorites"_s, true}, {u"images"_s, QJsonArray{u"a.png"_s}}}};
    EXPECT_EQ(Reports::albumsText(albums), u"Favoriten\n  a.png"_s);
}

TEST(Translations, momentsAreWrittenAsTheLanguageDoes)
{
    const std::vector<std::tuple<const char *, const char *, const char *>> cases{
        {"en", "en_US", "Mar 7, 14:05"},   {"en", "en_GB", "Mar 7, 14:05"},    {"en", "C", "Mar 7, 14:05"},
        {"de", "de_DE", "7. März, 14:05"}, {"fr", "fr_FR", "7 mars, 14:05"},   {"es", "es_ES", "7 mar, 14:05"},
        {"ja", "ja_JP", "3月7日 14:05"},   {"zh-CN", "zh_CN", "3月7日 14:05"},
    };
    for (const auto &[language, locale, text] : cases) {
        const SpokenLanguage spoken{QLatin1String(language)};
        EXPECT_EQ(ImageRecords::momentText(kAfternoon, QLocale(QLatin1String(locale))).toStdString(), text);
    }
    // Without a catalogue the locale's own order and digits.
    const QLocale persian(u"fa_IR"_s);
    EXPECT_EQ(ImageRecords::momentText(kAfternoon, persian), persian.toString(kAfternoon, QLocale::ShortFormat));
    EXPECT_TRUE(ImageRecords::momentText(kAfternoon, persian).contains(QChar(0x06f7)));
}

} // namespace quorvane
