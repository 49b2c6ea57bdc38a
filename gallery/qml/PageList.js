// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

.pragma library

// The pages of the gallery, in the order of the sidebar: one line a page. `name` is what --page
// takes and the name of the picture; pages with the same `section` stand together under it.
var pages = [
    { name: "documents", title: "Documents", section: "Content", file: "DocumentsPage.qml" },
    { name: "tree", title: "Tree", section: "Content", file: "TreePage.qml" },
    { name: "icons", title: "Images and icons", section: "Content", file: "IconsPage.qml" },
    { name: "dropzones", title: "Drop zones", section: "Drag and drop", file: "DropZonesPage.qml" },
    { name: "drags", title: "Dragging documents", section: "Drag and drop", file: "DragsPage.qml" },
    { name: "cards", title: "Dragging items", section: "Drag and drop", file: "CardsPage.qml" },
    { name: "popups", title: "Popups", section: "Overlays", file: "PopupsPage.qml" },
    { name: "dialogs", title: "Dialogs", section: "Overlays", file: "DialogsPage.qml" },
    { name: "colorpicker", title: "Colour picker", section: "Visuals", file: "ColorPickerPage.qml" },
    { name: "borders", title: "Borders and frames", section: "Visuals", file: "BordersPage.qml" },
    { name: "theme", title: "Theme", section: "Visuals", file: "ThemePage.qml" },
    { name: "qrcodes", title: "QR codes", section: "Visuals", file: "QRCodesPage.qml" },
    { name: "input", title: "Input helpers", section: "Input", file: "InputPage.qml" },
];
