// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQml 2.12
import QtTest 1.12
import ombrel.data.Core 1.0

TestCase {
    id: testCase
    name: "datacore"

    property Document album: Document {
        id: albumDocument
        documentId: "album"
        name: "Holiday"
        types: ["album", "folder"]
        url: "file:///pictures/holiday"
        context: Context { id: shelf }

        Document { id: beach; documentId: "beach"; types: ["image"] }
        Document {
            id: hills
            documentId: "hills"
            types: ["image"]
            Document { id: note; documentId: "note"; types: ["text"] }
        }
    }
    property Document plain: Document {}
    property Document other: Document { id: otherDocument }
    readonly property int count: albumDocument.children.length

    Component {
        id: documentComponent
        Document {}
    }
    // The target first: the other way round the spy connects twice.
    SignalSpy { id: spy; target: shelf; signalName: "documentChanged" }

    function ids(document) {
        let result = [];
        for (let i = 0; i < document.children.length; ++i)
            result.push(document.children[i].documentId);
        return result.join(" ");
    }

    function cleanup() {
        albumDocument.children = [beach, hills];
        hills.children = [note];
        otherDocument.children = [];
        spy.clear();
    }

    function test_plainDocument() {
        compare(plain.documentId, "");
        compare(plain.name, "");
        compare(plain.types.length, 0);
        compare(plain.url, "");
        compare(plain.context, null);
        compare(plain.children.length, 0);
    }

    function test_declaredChildren() {
        compare(ids(albumDocument), "beach hills");
        compare(ids(hills), "note");
        compare(count, 2);
    }

    function test_bindingOnTheCountFollows() {
        albumDocument.children = [beach];
        compare(count, 1);
        albumDocument.children = [];
        compare(count, 0);
        compare(beach.documentId, "beach");
    }

    function test_hasType_data() {
        return [
            { tag: "first", type: "album", expected: true },
            { tag: "second", type: "folder", expected: true },
            { tag: "other case", type: "Album", expected: false },
            { tag: "other", type: "image", expected: false },
            { tag: "empty", type: "", expected: false }
        ];
    }
    function test_hasType(row) {
        compare(albumDocument.hasType(row.type), row.expected);
    }

    function test_contextIsInherited() {
        compare(albumDocument.context, shelf);
        compare(note.context, shelf);
        hills.children = [];
        compare(note.context, null);
    }

    function test_contextOfItsOwn() {
        let own = Qt.createQmlObject("import ombrel.data.Core 1.0; Context {}", testCase);
        note.context = own;
        compare(note.context, own);
        note.context = undefined;
        compare(note.context, shelf);
        note.context = own;
        own.destroy();
        tryCompare(note, "context", shelf);
    }

    function test_contextReportsChanges() {
        note.name = "Packing list";
        compare(spy.count, 1);
        compare(spy.signalArguments[0][0], note);
        note.name = "Packing list";
        compare(spy.count, 1);
        otherDocument.name = "not in it";
        compare(spy.count, 1);
    }

    function test_assignedElsewhereLeavesTheOldList() {
        otherDocument.children = [beach];
        compare(ids(otherDocument), "beach");
        compare(ids(albumDocument), "hills");
    }

    function test_otherObjectsAreRefused() {
        otherDocument.children.push(testCase);
        otherDocument.children.push(shelf);
        compare(otherDocument.children.length, 0);
        otherDocument.children = [testCase];
        compare(otherDocument.children.length, 0);
    }

    function test_ancestorIsRefused() {
        note.children = [albumDocument];
        compare(note.children.length, 0);
        compare(ids(albumDocument), "beach hills");
    }

    function test_documentsFromScriptLiveInTheList() {
        otherDocument.children = [documentComponent.createObject(null, { documentId: "made" })];
        gc();
        wait(0);
        gc();
        compare(ids(otherDocument), "made");
    }

    function test_destroyedDocumentLeavesTheList() {
        otherDocument.children = [
            documentComponent.createObject(testCase, { documentId: "one" }),
            documentComponent.createObject(testCase, { documentId: "two" })
        ];
        otherDocument.children[0].destroy();
        tryCompare(otherDocument.children, "length", 1);
        compare(ids(otherDocument), "two");
        otherDocument.children[0].destroy();
        tryCompare(otherDocument.children, "length", 0);
    }
}
