#pragma once

#include <QObject>
#include <QtQml/qqml.h>

namespace quorvane {

/// The one picture that fills the screen, if any.
class ViewerModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString picture READ picture NOTIFY changed)
    Q_PROPERTY(QString thumbnail READ thumbnail NOTIFY changed)
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)

  public:
    using QObject::QObject;

    /// Addresses for Image; empty while nothing is shown.
    [[nodiscard]] QString picture() const;
    [[nodiscard]] QString thumbnail() const;
    [[nodiscard]] bool isOpen() const { return !m_url.isEmpty(); }

    /// Takes the place of what is shown. For a picture that cannot be read it only says so.
    Q_INVOKABLE void show(const QString &url);
    Q_INVOKABLE void close();

  Q_SIGNALS:
    void changed();
    /// A picture was not shown, because it cannot be read.
    void failed();

  private:
    QString m_url;
};

} // namespace quorvane
