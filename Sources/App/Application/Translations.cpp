#include "App/Application/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

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
    return QStringLiteral("C");
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
        return locale.script() == QLocale::SimplifiedHanScript ? QStringLiteral("zh_CN") : QString();
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
    const QString locale = messagesLocale().section(QLatin1Char('.'), 0, 0);
    if (locale == QLatin1String("C") || locale == QLatin1String("POSIX")) {
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
    return QStringLiteral("en");
}

Qt::LayoutDirection directionFor(const QStringList &languages)
{
    return languages.isEmpty() ? Qt::LeftToRight : QLocale(languages.first()).textDirection();
}

void installTranslations(QCoreApplication &application, const QStringList &languages)
{
    const QString name = catalogueFor(languages);
    install(application, QStringLiteral("qtbase_") + name, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(application, QStringLiteral("quorvane_") + name, QStringLiteral(":/translations"));
}

} // namespace quorvane
