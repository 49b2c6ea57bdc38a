// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

.pragma library

// The pages of the gallery, in the order of the sidebar: one line a page. `name` is what --page
// takes and the name of the picture; pages with the same `section` stand together under it; `types` are
// those with a demo on the page, in its order. The sections are those of the library and of its
// reference, in their order; the start and the application come first, the data core last.
// A page with `whole` is an application of its own: it fills its place, scrolls in its parts and has
// no cards.
var pages = [
    { name: "start", title: "Start", section: "", file: "StartPage.qml", types: [] },
    { name: "shelf", title: "Shelf", section: "Application", file: "ShelfPage.qml", types: [], whole: true },
    { name: "theme", title: "Colours and fonts", section: "Theme", file: "ThemePage.qml", types: ["UI", "Control"] },
    { name: "icons", title: "Images and icons", section: "Theme", file: "IconsPage.qml", types: [] },
    { name: "dropzones", title: "Drop zones", section: "Drop", file: "DropZonesPage.qml",
      types: ["DropZone", "FileDropHandler", "ImageDropHandler", "VideoDropHandler"] },
    { name: "drags", title: "Dragging documents", section: "Drag", file: "DragsPage.qml",
      types: ["DragZone", "DragArea", "DocumentDropHandler"] },
    { name: "cards", title: "Dragging items", section: "Drag", file: "CardsPage.qml",
      types: ["Draggable", "DraggableDropHandler"] },
    { name: "popups", title: "Popups and menus", section: "Popups", file: "PopupsPage.qml",
      types: ["Popup", "PopupAnchorItem"] },
    { name: "dialogs", title: "Dialogs", section: "Popups", file: "DialogsPage.qml", types: ["DialogItem"] },
    { name: "tree", title: "Tree view", section: "Tree", file: "TreePage.qml", types: ["TreeView"] },
    { name: "borders", title: "Borders and frames", section: "Visuals", file: "BordersPage.qml",
      types: ["Frame", "DashedBorder"] },
    { name: "qrcodes", title: "QR codes", section: "Visuals", file: "QRCodesPage.qml", types: ["QRCode"] },
    { name: "colorpicker", title: "Colour picker", section: "Visuals", file: "ColorPickerPage.qml",
      types: ["SaturationValueBox", "HueBox", "CheckerBox", "ColorMapper"] },
    { name: "input", title: "Input helpers", section: "Input", file: "InputPage.qml",
      types: ["PropertyEditor", "KeyEventSource", "HoverArea", "FpsCounter"] },
    { name: "documents", title: "Documents", section: "Data core", file: "DocumentsPage.qml",
      types: ["Document", "Context"] },
];

// Pages that the sidebar does not have: what the gallery itself is drawn with.
var apart = [
    { name: "kit", title: "The kit", section: "", file: "KitPage.qml", types: [] },
];

// The page with a demo of a type, or with another page's name; undefined when there is none.
function pageOf(type) { return pages.find(page => page.types.includes(type)); }
function pageNamed(name) { return pages.concat(apart).find(page => page.name === name); }
