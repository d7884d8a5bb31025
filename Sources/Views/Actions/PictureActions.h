#pragma once

#include "Platform/System/FileManager.h"

#include <QObject>
#include <QtQml/qqml.h>

#include <memory>

namespace quorvane {

/// What can be done with the file of a picture outside of this program.
class PictureActions : public QObject
{
    Q_OBJECT
    QML_ELEMENT

  public:
    using QObject::QObject;

    /// Opens the file manager where the picture is.
    Q_INVOKABLE void showInFiles(const QString &path);

    /// Puts the picture, and the address of its file, on the clipboard.
    Q_INVOKABLE static void copy(const QString &path);

    /// What a dragged picture brings along, for Drag.mimeData: the address of its file.
    Q_INVOKABLE static QVariantMap draggedData(const QString &path);

  private:
    std::unique_ptr<FileManager> m_files; ///< Made when it is first needed.
};

} // namespace quorvane
