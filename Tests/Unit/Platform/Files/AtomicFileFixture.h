#pragma once

#include <QDir>

#include <gtest/gtest.h>

#include <sys/file.h>

namespace quorvane {

inline QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

} // namespace quorvane
