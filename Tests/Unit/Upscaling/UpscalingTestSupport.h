#pragma once

#include "Support/PrivateHome.h"
#include "Upscaling/LocalUpscaler.h"

#include <QByteArray>
#include <QImage>
#include <QSet>
#include <QString>

#include <vector>

namespace quorvane {

/// A picture whose pixels say where they are: x and y in full, spread over red, green and blue. Up to 4096 × 4096.
[[nodiscard]] QImage positions(int width, int height);

/// Empty when every pixel of result is the pixel of source that it lies on after enlarging four times, else what
/// differs.
[[nodiscard]] QString firstDifference(const QImage &result, const QImage &source);

[[nodiscard]] QByteArray encoded(const QImage &image, const char *format = "png");
[[nodiscard]] QImage decoded(const QByteArray &bytes);

[[nodiscard]] QString modelFile(const char *name);

/// A home of the test's own, in which nothing is installed and the user's network is the named one of the test
/// networks.
class HomeWithModel : public PrivateHome
{
  public:
    explicit HomeWithModel(const char *model = nullptr);
    ~HomeWithModel();

    void use(const char *model) const;

  private:
    QByteArray m_dataFoldersBefore;
};

/// How localUpscaleImage() ended.
struct UpscaleOutcome
{
    QByteArray png;
    QString extension;
    QString error; ///< what() of the exception; empty when there was none.
    std::vector<UpscaleProgress> progress;
};

/// Runs it to its end; duringFirstTile is called here while the network works.
[[nodiscard]] UpscaleOutcome upscale(const QByteArray &bytes, const std::stop_token &stop = {},
                                     const std::function<void()> &duringFirstTile = {});

/// The numbers of this process's threads.
[[nodiscard]] QSet<QString> threads();

/// Whether none of them is left. A thread that has been joined may still be listed for a moment, hence the wait.
[[nodiscard]] bool areGone(const QSet<QString> &some);

/// The numbers of the processes that this process, or the given one, has started and not collected yet.
[[nodiscard]] QSet<QString> childProcesses(qint64 parent = 0);

/// The text that call throws as Error; empty when it throws nothing.
template <typename Error, typename Call> QString thrown(Call call)
{
    try {
        call();
    } catch (const Error &error) {
        return QString::fromUtf8(error.what());
    }
    return {};
}

/// For readable failures: gtest cannot print a QString.
inline std::string text(const QString &string)
{
    return string.toStdString();
}

} // namespace quorvane
