// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtTest 1.12
import ombrel.Controls 1.0
import ombrel.data.Core 1.0

Item {
    width: 200
    height: 200

    Document { id: report; name: "Report" }
    PropertyEditor {
        id: editor
        document: report
        property: "name"
        width: 100
        height: 50
        TextInput { id: input; focus: true; anchors.fill: parent }
    }
    KeyEventSource { id: source }
    HoverArea { id: area; y: 100; width: 100; height: 50 }
    FpsCounter { id: counter }

    SignalSpy { id: begun; target: editor; signalName: "beginEdit" }
    SignalSpy { id: entered; target: editor; signalName: "enterPressed" }

    TestCase {
        name: "Input"
        when: windowShown

        function test_typing_into_an_editor() {
            begun.clear();
            editor.forceActiveFocus();
            tryCompare(begun, "count", 1);
            verify(input.activeFocus);
            source.triggerKeyEvent(Qt.Key_H, "h");
            source.triggerKeyEvent(Qt.Key_I, "i");
            compare(input.text, "hi");
            source.triggerKeyEvent(Qt.Key_Backspace, "");
            compare(input.text, "h");
            keyClick(Qt.Key_Return);
            compare(entered.count, 1);
        }
        function test_document_and_property() {
            compare(editor.document, report);
            compare(editor.property, "name");
            compare(editor.document[editor.property], "Report");
        }
        function test_target() {
            compare(source.target, null);
            source.target = input;
            compare(source.target, input);
            source.target = null;
        }
        function test_face() {
            compare(area.hovered, false);
            verify(area.disabledChanged);
            compare(counter.parent, undefined);
            verify(counter.currentFps >= 0);
        }
    }
}
