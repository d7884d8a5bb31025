#include "Views/Views.h"

#include "Views/Controls/ControlAccessibility.h"
#include "Views/Controls/SecureFieldAccessibility.h"
#include "Views/Pictures/PictureProvider.h"
#include "Views/Pictures/ShadowProvider.h"
#include "Views/Pictures/SymbolProvider.h"

#include <QQmlEngine>
#include <QtGlobal>

using namespace Qt::StringLiterals;

// Written by the build; naming it keeps the linker from dropping the types out of the static library.
extern void qml_register_types_Quorvane_Views();

namespace quorvane {

void installViews(QQmlEngine *engine)
{
    volatile auto types = &qml_register_types_Quorvane_Views;
    Q_UNUSED(types);
    describeControls();
    protectSecureFields();
    engine->addImportPath(u"qrc:/qt/qml"_s);
    engine->addImageProvider(PictureProvider::kThumbnails, new PictureProvider(PictureProvider::Kind::Thumbnail));
    engine->addImageProvider(PictureProvider::kPictures, new PictureProvider(PictureProvider::Kind::SizeAsked));
    engine->addImageProvider(ShadowProvider::kName, new ShadowProvider);
    engine->addImageProvider(SymbolProvider::kName, new SymbolProvider);
}

} // namespace quorvane
