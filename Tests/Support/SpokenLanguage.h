#pragma once

#include "App/Application/Translations.h"

#include <QCoreApplication>
#include <QTranslator>

namespace quorvane {

/// The test's own program speaks a language for as long as the object lives.
class SpokenLanguage
{
  public:
    explicit SpokenLanguage(const QString &language) { installTranslations(*QCoreApplication::instance(), {language}); }
    ~SpokenLanguage()
    {
        // A translator that goes takes its texts back.
        qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>(QString(), Qt::FindDirectChildrenOnly));
    }
    SpokenLanguage(const SpokenLanguage &) = delete;
    SpokenLanguage &operator=(const SpokenLanguage &) = delete;
    SpokenLanguage(SpokenLanguage &&) = delete;
    SpokenLanguage &operator=(SpokenLanguage &&) = delete;
};

} // namespace quorvane
