// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.data.Core 1.0

// Some documents of a folder, of each type that is dragged here; where the folder has none of a type,
// a sample that comes with the gallery.
QtObject {
    id: samples

    property QtObject folder
    property int perType: 2
    // Of the types that have to be there.
    readonly property var documents: {
        const found = { image: [], video: [], text: [], file: [] };
        for (let i = 0; i < folder.children.length; ++i) {
            const document = folder.children[i];
            const list = found[document.types.length > 0 ? document.types[0] : "file"];
            if (list && list.length < perType)
                list.push(document);
        }
        for (const sample of built) {
            if (found[sample.types[0]].length === 0)
                found[sample.types[0]].push(sample);
        }
        return found.image.concat(found.video, found.text, found.file);
    }
    function isSample(document) { return built.indexOf(document) >= 0; }

    property list<Document> list: [
        Document { documentId: "sample:sunset"; name: "sunset.svg"; types: ["image"]; url: Qt.resolvedUrl("../samples/sunset.svg") },
        Document { documentId: "sample:clip"; name: "clip.mp4"; types: ["video"]; url: Qt.resolvedUrl("../samples/clip.mp4") },
        Document { documentId: "sample:notes"; name: "notes.txt"; types: ["text"]; url: Qt.resolvedUrl("../samples/notes.txt") }
    ]
    readonly property var built: Array.from(list)
}
