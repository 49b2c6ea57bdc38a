// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtTest 1.2
import ombrel.Controls 1.0

/// The face that the drop types show to QML.
TestCase {
    id: testCase
    name: "DropZone"
    when: windowShown
    width: 200
    height: 200

    Component {
        id: zoneComponent
        DropZone {
            property alias first: first
            property int entries: 0
            width: 100
            height: 100
            FileDropHandler { id: first; suffixes: ["pdf", "txt"] }
            ImageDropHandler { onEntered: entries += drag.data.length }
            VideoDropHandler {}
        }
    }

    Component {
        id: spy
        SignalSpy {}
    }

    function create(qml) {
        return createTemporaryQmlObject("import QtQuick 2.12; import ombrel.Controls 1.0; " + qml,
                                        testCase);
    }

    function test_handlersAreTheDefaultProperty() {
        const zone = createTemporaryObject(zoneComponent, testCase);
        compare(zone.dropHandlers.length, 3);
        compare(zone.dropHandlers[0], zone.first);
        verify(zone.dropHandlers[1] instanceof ImageDropHandler);
        verify(zone.dropHandlers[2] instanceof VideoDropHandler);
        verify(zone.dropHandlers[2] instanceof FileDropHandler);
        compare(zone.dropHandlers[3], undefined);
        compare(zone.dropHandlers[-1], undefined);
        compare(zone.containsDrag, false);
    }

    function test_handlersCanBeAssigned() {
        const zone = createTemporaryObject(zoneComponent, testCase);
        const other = create("FileDropHandler {}");
        const changed = createTemporaryObject(spy, testCase, {
            target: zone, signalName: "dropHandlersChanged" });
        zone.dropHandlers = [other, zone.first];
        compare(zone.dropHandlers.length, 2);
        compare(zone.dropHandlers[0], other);
        // Cleared, then appended one by one.
        compare(changed.count, 3);
        zone.dropHandlers = [];
        compare(zone.dropHandlers.length, 0);
        compare(changed.count, 4);
    }

    function test_listFromJavaScript_data() {
        return [
            { tag: "a handler pushed", length: 4, changes: 1,
              run: zone => zone.dropHandlers.push(create("FileDropHandler {}")) },
            { tag: "another object pushed", length: 3, changes: 0,
              run: zone => zone.dropHandlers.push(testCase) },
            { tag: "null pushed", length: 3, changes: 0,
              run: zone => zone.dropHandlers.push(null) },
            { tag: "length set", length: 0, changes: 1,
              run: zone => { zone.dropHandlers.length = 0; } },
            { tag: "null assigned", length: 0, changes: 1,
              run: zone => { zone.dropHandlers = null; } },
            { tag: "undefined assigned", length: 3, changes: 0,
              run: zone => { zone.dropHandlers = undefined; } },
            { tag: "null and a handler assigned", length: 1, changes: 2,
              run: zone => { zone.dropHandlers = [null, zone.first]; } },
            { tag: "another object assigned", length: 0, changes: 1,
              run: zone => { zone.dropHandlers = [testCase]; } },
            { tag: "values assigned", length: 0, changes: 1,
              run: zone => { zone.dropHandlers = ["x", 3]; } }
        ];
    }

    function test_listFromJavaScript(row) {
        const zone = createTemporaryObject(zoneComponent, testCase);
        const changed = createTemporaryObject(spy, testCase, {
            target: zone, signalName: "dropHandlersChanged" });
        try { row.run(zone); } catch (error) { /* The engine's own refusals. */ }
        compare(zone.dropHandlers.length, row.length);
        compare(changed.count, row.changes);
        for (let i = 0; i < zone.dropHandlers.length; ++i)
            verify(zone.dropHandlers[i] instanceof DropHandler);
    }

    function test_destroyedHandlersLeaveTheList() {
        const zone = createTemporaryObject(zoneComponent, testCase);
        const changed = createTemporaryObject(spy, testCase, {
            target: zone, signalName: "dropHandlersChanged" });
        zone.first.destroy();
        changed.wait();
        compare(changed.count, 1);
        compare(zone.dropHandlers.length, 2);
        verify(zone.dropHandlers[0] instanceof ImageDropHandler);
    }

    function test_containsDragIsReadOnly() {
        const zone = createTemporaryObject(zoneComponent, testCase);
        let message = "";
        try { zone.containsDrag = true; } catch (error) { message = error.message; }
        compare(message, "Cannot assign to read-only property \"containsDrag\"");
    }

    function test_suffixes() {
        const handler = create("FileDropHandler {}");
        const changed = createTemporaryObject(spy, testCase, {
            target: handler, signalName: "suffixesChanged" });
        compare(handler.suffixes.length, 0);
        handler.suffixes = ["PDF", "txt"];
        compare(changed.count, 1);
        compare(changed.signalArguments[0][0], ["PDF", "txt"]);
        handler.suffixes = ["PDF", "txt"];
        compare(changed.count, 1);
        compare(handler.suffixes[0], "PDF");
        handler.suffixes.push("md");
        compare(handler.suffixes.length, 3);
        compare(changed.count, 2);
    }

    function test_fixedSuffixesCannotBeAssigned_data() {
        return [{ tag: "ImageDropHandler" }, { tag: "VideoDropHandler" }];
    }

    function test_fixedSuffixesCannotBeAssigned(data) {
        const handler = create(data.tag + " {}");
        const before = Array.from(handler.suffixes);
        verify(before.length > 3);
        let message = "";
        try { handler.suffixes = ["x"]; } catch (error) { message = error.message; }
        compare(message, "Cannot assign to read-only property \"suffixes\"");
        compare(Array.from(handler.suffixes), before);
        message = "";
        try { create(data.tag + " { suffixes: ['x'] }"); } catch (error) {
            message = error.qmlErrors[0].message;
        }
        compare(message, "Invalid property assignment: \"suffixes\" is a read-only property");
    }

    function test_videoSuffixes() {
        compare(Array.from(create("VideoDropHandler {}").suffixes),
                ["avi", "flv", "mkv", "mp4", "webm", "mov"]);
    }

    function test_abstractTypesCannotBeCreated_data() {
        return [
            { tag: "DropHandler", reason: "DropHandler is abstract" },
            { tag: "DropData", reason: "DropData cannot be created" }
        ];
    }

    function test_abstractTypesCannotBeCreated(data) {
        let message = "";
        try { create(data.tag + " {}"); } catch (error) { message = error.qmlErrors[0].message; }
        compare(message, data.reason);
    }
}
