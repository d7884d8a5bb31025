#pragma once

#include <QMimeData>
#include <QString>

namespace quorvane {

/// A picture for the clipboard: the address of its file, and its pixels, which are decoded only when a program asks for
/// them.
class PictureMimeData : public QMimeData
{
    Q_OBJECT

  public:
    explicit PictureMimeData(const QString &path);

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] bool hasFormat(const QString &format) const override;

  protected:
    [[nodiscard]] QVariant retrieveData(const QString &format, QMetaType type) const override;

  private:
    QString m_path;
};

} // namespace quorvane
