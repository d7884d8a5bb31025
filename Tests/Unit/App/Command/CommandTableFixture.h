#pragma once

#include "Support/Files.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;

inline QString resource(const char *name)
{
    const QString text =
        QString::fromUtf8(contentOf(QStringLiteral(QUORVANE_RESOURCES) + '/'_L1 + QLatin1String(name)));
    EXPECT_FALSE(text.isEmpty()) << name;
    return text;
}

/// What every match of the pattern's first group holds.
inline QStringList found(const QString &text, const QString &pattern)
{
    QStringList all;
    auto matches = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext()) {
        all.append(matches.next().captured(1));
    }
    return all;
}

} // namespace quorvane
