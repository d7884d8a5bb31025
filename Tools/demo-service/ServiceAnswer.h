#pragma once

#include "demo-service/PictureOrder.h"

#include <QJsonObject>

namespace quorvane {

/// The object {"error": {"message": message, "code": status}} under that status.
[[nodiscard]] HttpAnswer errorAnswer(int status, const QString &message);

/// The service's answer to order: base64 stands where the picture belongs, with the fields around it that the real
/// services send too.
[[nodiscard]] QJsonObject pictureAnswer(const PictureOrder &order, const QString &base64);

} // namespace quorvane
