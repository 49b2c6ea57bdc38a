// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

.pragma library

// The pages of the gallery, in the order of the sidebar: one line a page. `name` is what --page
// takes and the name of the picture; pages with the same `section` stand together under it. The
// sections are those of the library and of its reference, in their order; the application comes first, the data core last.
// A page with `whole` is an application of its own: it fills its place, scrolls in its parts and has
// no cards.
var pages = [
    { name: "shelf", title: "Shelf", section: "Application", file: "ShelfPage.qml", whole: true },
    { name: "theme", title: "Colours and fonts", section: "Theme", file: "ThemePage.qml" },
    { name: "icons", title: "Images and icons", section: "Theme", file: "IconsPage.qml" },
    { name: "dropzones", title: "Drop zones", section: "Drop", file: "DropZonesPage.qml" },
    { name: "drags", title: "Dragging documents", section: "Drag", file: "DragsPage.qml" },
    { name: "cards", title: "Dragging items", section: "Drag", file: "CardsPage.qml" },
    { name: "popups", title: "Popups and menus", section: "Popups", file: "PopupsPage.qml" },
    { name: "dialogs", title: "Dialogs", section: "Popups", file: "DialogsPage.qml" },
    { name: "tree", title: "Tree view", section: "Tree", file: "TreePage.qml" },
    { name: "borders", title: "Borders and frames", section: "Visuals", file: "BordersPage.qml" },
    { name: "qrcodes", title: "QR codes", section: "Visuals", file: "QRCodesPage.qml" },
    { name: "colorpicker", title: "Colour picker", section: "Visuals", file: "ColorPickerPage.qml" },
    { name: "input", title: "Input helpers", section: "Input", file: "InputPage.qml" },
    { name: "documents", title: "Documents", section: "Data core", file: "DocumentsPage.qml" },
];
