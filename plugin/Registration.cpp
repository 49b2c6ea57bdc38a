// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "plugin/Registration.h"

#include "controls/drag/DocumentDropHandler.h"
#include "controls/drag/DragArea.h"
#include "controls/drag/DragZone.h"
#include "controls/drag/Draggable.h"
#include "controls/drag/DraggableDropHandler.h"
#include "controls/drop/DropData.h"
#include "controls/drop/DropHandler.h"
#include "controls/drop/DropZone.h"
#include "controls/drop/FileDropHandler.h"
#include "controls/drop/ImageDropHandler.h"
#include "controls/drop/VideoDropHandler.h"
#include "controls/input/FpsCounter.h"
#include "controls/input/HoverArea.h"
#include "controls/input/KeyEventSource.h"
#include "controls/input/PropertyEditor.h"
#include "controls/popups/DialogItem.h"
#include "controls/popups/Popup.h"
#include "controls/popups/PopupAnchorItem.h"
#include "controls/private/CheckerBox.h"
#include "controls/private/ColorMapper.h"
#include "controls/private/HueBox.h"
#include "controls/private/SaturationValueBox.h"
#include "controls/theme/Control.h"
#include "controls/theme/UI.h"
#include "controls/tree/TreeView.h"
#include "controls/visuals/DashedBorder.h"
#include "controls/visuals/Frame.h"
#include "controls/visuals/QRCode.h"

#include <QtQml>

// The order below is the order in which the types are registered; a new type is a new line.

namespace om::controls {

/// The engine owns what this returns.
template<typename T>
static QObject *createSingleton(QQmlEngine *, QJSEngine *)
{
    return new T(nullptr);
}

/// Without this a document could not name what Item has had since QtQuick 2.1, activeFocusOnTab and
/// containmentMask among it, in our items: the engine hides what came in a later revision of a base
/// class than the module registers.
static void registerRevisionsOfItem(const char *uri)
{
    constexpr int revisionOfQt512 = 11;
    qmlRegisterRevision<QQuickItem, revisionOfQt512>(uri, 1, 0);
}

void registerPublicTypes(const char *uri)
{
    qmlRegisterType<Popup>(uri, 1, 0, "Popup");
    qmlRegisterType<DialogItem>(uri, 1, 0, "DialogItem");
    qmlRegisterType<PopupAnchorItem>(uri, 1, 0, "PopupAnchorItem");
    qmlRegisterType<HoverArea>(uri, 1, 0, "HoverArea");
    qmlRegisterType<DragArea>(uri, 1, 0, "DragArea");
    qmlRegisterType<TreeView>(uri, 1, 0, "TreeView");
    qmlRegisterType<QRCode>(uri, 1, 0, "QRCode");
    qmlRegisterType<PropertyEditor>(uri, 1, 0, "PropertyEditor");
    qmlRegisterType<DropZone>(uri, 1, 0, "DropZone");
    qmlRegisterType<FileDropHandler>(uri, 1, 0, "FileDropHandler");
    qmlRegisterType<ImageDropHandler>(uri, 1, 0, "ImageDropHandler");
    qmlRegisterType<VideoDropHandler>(uri, 1, 0, "VideoDropHandler");
    qmlRegisterType<DragZone>(uri, 1, 0, "DragZone");
    qmlRegisterType<Draggable>(uri, 1, 0, "Draggable");
    qmlRegisterType<DraggableDropHandler>(uri, 1, 0, "DraggableDropHandler");
    qmlRegisterType<DocumentDropHandler>(uri, 1, 0, "DocumentDropHandler");
    qmlRegisterType<FpsCounter>(uri, 1, 0, "FpsCounter");
    qmlRegisterType<Frame>(uri, 1, 0, "Frame");
    qmlRegisterType<DashedBorder>(uri, 1, 0, "DashedBorder");
    qmlRegisterType<KeyEventSource>(uri, 1, 0, "KeyEventSource");
    qmlRegisterUncreatableType<DropHandler>(uri, 1, 0, "DropHandler", "DropHandler is abstract");
    qmlRegisterUncreatableType<DropData>(uri, 1, 0, "DropData", "DropData cannot be created");
    qmlRegisterSingletonType<Control>(uri, 1, 0, "Control", createSingleton<Control>);
    qmlRegisterSingletonType<UI>(uri, 1, 0, "UI", createSingleton<UI>);
    registerRevisionsOfItem(uri);
}

void registerPrivateTypes(const char *uri)
{
    qmlRegisterType<SaturationValueBox>(uri, 1, 0, "SaturationValueBox");
    qmlRegisterType<HueBox>(uri, 1, 0, "HueBox");
    qmlRegisterType<CheckerBox>(uri, 1, 0, "CheckerBox");
    qmlRegisterType<ColorMapper>(uri, 1, 0, "ColorMapper");
    registerRevisionsOfItem(uri);
}

} // namespace om::controls
