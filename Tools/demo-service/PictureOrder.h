#pragma once

#include "demo-service/HttpMessage.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <variant>

namespace quorvane {

/// What an accepted request asks for.
struct PictureOrder
{
    enum class Service { Gemini, Grok, OpenAI };

    Service service = Service::Gemini;
    QString model;
    QString prompt;
    QSize size;      ///< Pixels of the picture to make.
    QImage original; ///< The picture to enlarge; null when one is to be painted.

    /// The encoding in which this service answers: "png" or "jpg".
    [[nodiscard]] const char *format() const { return service == Service::Grok ? "jpg" : "png"; }
};

/// Checks a request as the three services do (path, method, content type, key, fields) and says what it orders, or
/// which refusal it gets.
[[nodiscard]] std::variant<PictureOrder, HttpAnswer> readOrder(const HttpRequest &request);

} // namespace quorvane
