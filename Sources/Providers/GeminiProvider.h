#pragma once

#include "Providers/ImageProvider.h"
#include "Providers/ServiceRequest.h"

namespace quorvane {

/// Pictures from the Gemini API, always asked for at 4K and 16:9; wants4K is not looked at.
class GeminiProvider final : public ImageProvider
{
  public:
    explicit GeminiProvider(HttpClient *http);

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
[[nodiscard]] ServiceRequest geminiRequest(const QString &prompt, const QString &apiKey, const QString &model);
[[nodiscard]] AnswerFormat geminiAnswer();

} // namespace quorvane
