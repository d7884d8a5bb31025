#pragma once

#include <QHash>
#include <QString>

namespace quorvane {

/// One selectable model of a service.
struct ModelOption
{
    QString id;    ///< Sent to the service as it stands.
    QString label; ///< Shown in the model picker.

    friend bool operator==(const ModelOption &, const ModelOption &) = default;
};

inline std::size_t qHash(const ModelOption &option, std::size_t seed = 0)
{
    return qHashMulti(seed, option.id, option.label);
}

} // namespace quorvane
