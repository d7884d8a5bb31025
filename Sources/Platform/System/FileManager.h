#pragma once

#include "Platform/Bus/SessionBus.h"

#include <QObject>
#include <QString>

namespace quorvane {

/// The user's file manager.
class FileManager : public QObject
{
    Q_OBJECT

  public:
    using QObject::QObject;

    /// Opens the folder of the file at path with the file selected, or just the folder where no file manager offers
    /// that. Returns at once.
    void show(const QString &path);

  private:
    SessionBus m_bus;
};

} // namespace quorvane
