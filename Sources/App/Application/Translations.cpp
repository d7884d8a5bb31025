#include "App/Application/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What the environment says about the language of texts, by the order of POSIX.
QString messagesLocale()
{
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        QString value = qEnvironmentVariable(name);
        if (!value.isEmpty()) {
            return value;
        }
    }
    return u"C"_s;
}

QString catalogueName(const QLocale &locale)
{
    switch (locale.language()) {
    case QLocale::German:
    case QLocale::English:
    case QLocale::Spanish:
    case QLocale::French:
    case QLocale::Japanese:
        return QLocale::languageToCode(locale.language());
    case QLocale::Chinese:
        return locale.script() == QLocale::SimplifiedHanScript ? u"zh_CN"_s : QString();
    default:
        return {};
    }
}

void install(QCoreApplication &application, const QString &name, const QString &folder)
{
    auto *translator = new QTranslator(&application);
    if (translator->load(name, folder)) {
        QCoreApplication::installTranslator(translator);
    } else {
        delete translator;
    }
}

} // namespace

QStringList wantedLanguages()
{
    // "C.UTF-8" is "C" with another encoding.
    const QString locale = messagesLocale().section('.'_L1, 0, 0);
    if (locale == "C"_L1 || locale == "POSIX"_L1) {
        return {};
    }
    return QLocale::system().uiLanguages();
}

QString catalogueFor(const QStringList &languages)
{
    for (const QString &language : languages) {
        QString name = catalogueName(QLocale(language));
        if (!name.isEmpty()) {
            return name;
        }
    }
    return u"en"_s;
}

Qt::LayoutDirection directionFor(const QStringList &languages)
{
    return languages.isEmpty() ? Qt::LeftToRight : QLocale(languages.first()).textDirection();
}

void installTranslations(QCoreApplication &application, const QStringList &languages)
{
    const QString name = catalogueFor(languages);
    install(application, u"qtbase_"_s + name, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(application, u"quorvane_"_s + name, u":/translations"_s);
}

} // namespace quorvane
