#pragma once

#include <QLatin1String>
#include <QQuickImageProvider>

namespace quorvane {

/// Gives QML the symbols of Symbols/, drawn in one colour at the size that is asked for: "image://symbol/star/#ffcc00".
class SymbolProvider : public QQuickImageProvider
{
  public:
    static constexpr QLatin1String kName{"symbol"};

    SymbolProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace quorvane
