// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "plugin/Registration.h"

#include "controls/Control.h"
#include "controls/DashedBorder.h"
#include "controls/DialogItem.h"
#include "controls/DocumentDropHandler.h"
#include "controls/DragArea.h"
#include "controls/DragZone.h"
#include "controls/Draggable.h"
#include "controls/DraggableDropHandler.h"
#include "controls/DropData.h"
#include "controls/DropHandler.h"
#include "controls/DropZone.h"
#include "controls/FileDropHandler.h"
#include "controls/FpsCounter.h"
#include "controls/Frame.h"
#include "controls/HoverArea.h"
#include "controls/ImageDropHandler.h"
#include "controls/KeyEventSource.h"
#include "controls/Popup.h"
#include "controls/PopupAnchorItem.h"
#include "controls/PropertyEditor.h"
#include "controls/QRCode.h"
#include "controls/TreeView.h"
#include "controls/UI.h"
#include "controls/VideoDropHandler.h"
#include "controls/private/CheckerBox.h"
#include "controls/private/ColorMapper.h"
#include "controls/private/HueBox.h"
#include "controls/private/SaturationValueBox.h"

#include <QtQml>

// The order below is the order in which the types are registered; a new type is a new line.

namespace om::controls {

/// The engine owns what this returns.
template<typename T>
static QObject *createSingleton(QQmlEngine *, QJSEngine *)
{
    return new T(nullptr);
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
}

void registerPrivateTypes(const char *uri)
{
    qmlRegisterType<SaturationValueBox>(uri, 1, 0, "SaturationValueBox");
    qmlRegisterType<HueBox>(uri, 1, 0, "HueBox");
    qmlRegisterType<CheckerBox>(uri, 1, 0, "CheckerBox");
    qmlRegisterType<ColorMapper>(uri, 1, 0, "ColorMapper");
}

} // namespace om::controls
