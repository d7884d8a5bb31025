#pragma once

#include "Faults/FaultHome.h"

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>

#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace quorvane {

/// One run of the program with what is to be seen afterwards.
struct Scenario
{
    const char *name;
    QStringList arguments;
    QByteArray input = {};
    FaultHome::Meant meant = {};
    /// Settings that were made before.
    std::map<QString, QString> settings = {};
    /// Whether the files say what a success without a word of problems claims. result is the JSON.
    std::function<bool(const FaultHome &home, const QJsonObject &result)> isDone = {};
};

/// Which scenarios.
enum class Of { Everything, LargePictures };

[[nodiscard]] std::vector<Scenario> scenarios(Of which);

/// For GoogleTest.
inline void PrintTo(const Scenario &scenario, std::ostream *out) // NOLINT(readability-identifier-naming)
{
    *out << scenario.name;
}

} // namespace quorvane
