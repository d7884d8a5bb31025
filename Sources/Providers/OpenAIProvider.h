#pragma once

#include "Providers/ImageProvider.h"
#include "Providers/ServiceRequest.h"

namespace quorvane {

/// Pictures from OpenAI. The only service that looks at wants4K: "gpt-image-2" paints 3840×2160 itself.
class OpenAIProvider final : public ImageProvider
{
  public:
    explicit OpenAIProvider(HttpClient *http);

    [[nodiscard]] QString name() const override { return m_name; }
    [[nodiscard]] QString id() const override { return m_id; }
    [[nodiscard]] QList<ModelOption> models() const override { return m_models; }
    [[nodiscard]] QCoro::Task<GeneratedImage> generate(QString prompt, QString apiKey, QString model,
                                                       bool wants4K) const override;

  private:
    QString m_name;
    QString m_id;
    QList<ModelOption> m_models;
    HttpClient *m_http;
};

/// The request for a picture, and how its answer is read: what generate() sends.
[[nodiscard]] ServiceRequest openAIRequest(const QString &prompt, const QString &apiKey, const QString &model,
                                           bool wants4K);
[[nodiscard]] AnswerFormat openAIAnswer();

} // namespace quorvane
