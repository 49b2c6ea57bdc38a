// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "plugin/Registration.h"

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
#include "controls/HoverArea.h"
#include "controls/ImageDropHandler.h"
#include "controls/KeyEventSource.h"
#include "controls/Popup.h"
#include "controls/PopupAnchorItem.h"
#include "controls/PropertyEditor.h"
#include "controls/QRCode.h"
#include "controls/TreeView.h"
#include "controls/VideoDropHandler.h"

#include <QtQml>

// The order below is the order in which the types are registered; a new type is a new line.

namespace om::controls {

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
    qmlRegisterType<KeyEventSource>(uri, 1, 0, "KeyEventSource");
    qmlRegisterUncreatableType<DropHandler>(uri, 1, 0, "DropHandler", "DropHandler is abstract");
    qmlRegisterUncreatableType<DropData>(uri, 1, 0, "DropData", "DropData cannot be created");
}

void registerPrivateTypes(const char *uri)
{
    Q_UNUSED(uri)
}

} // namespace om::controls
