// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtTest 1.12
import "../../gallery/qml/kit"

Item {
    id: root
    width: 500
    height: 500

    QtObject {
        id: subject
        property bool flag: false
        property real number: 10
        property string text: "before"
        property var list: ["a", "b"]
        property color tone: "#40A1BB"
        property int choice: 2
        property point spot: Qt.point(3, 4)
    }
    Column {
        width: 320
        BoolEditor { id: boolEditor; target: subject; property: "flag" }
        NumberEditor { id: numberEditor; target: subject; property: "number"; from: 0; to: 50 }
        TextEditor { id: textEditor; target: subject; property: "text" }
        TextEditor { id: listEditor; target: subject; property: "list"; list: true }
        ColorEditor { id: colorEditor; target: subject; property: "tone" }
        ChoiceEditor {
            id: choiceEditor
            target: subject
            property: "choice"
            options: [{ text: "One", value: 1 }, { text: "Two", value: 2 }, { text: "Three", value: 3 }]
        }
        PointEditor { id: pointEditor; target: subject; property: "spot" }
        ValueRow { id: valueRow; target: subject; property: "number" }
        NumberEditor { id: loose; label: "loose"; value: 5; onEdited: value = newValue }
        EventLog { id: log; lines: 3 }
    }
    Demo {
        id: demo
        width: 1000
        title: "Demo"
        hint: "Try it"
        Rectangle { id: live; anchors.fill: parent }
        editors: [ BoolEditor { id: first; label: "first" }, ValueRow { id: second; label: "second" } ]
    }
    Section {
        id: section
        width: 400
        title: "Section"
        Rectangle { id: upper; width: 10; height: 40 }
        Rectangle { id: lower; width: 10; height: 50 }
    }

    function find(item, test) {
        if (test(item))
            return item;
        for (let i = 0; i < item.children.length; ++i) {
            const found = find(item.children[i], test);
            if (found)
                return found;
        }
        return null;
    }
    function fieldOf(editor) { return find(editor, item => item.hasOwnProperty("valid") && item.hasOwnProperty("selectByMouse")); }

    function texts(item) {
        let all = item.text !== undefined && item.visible && item.text !== "" ? [item.text] : [];
        for (let i = 0; i < item.children.length; ++i)
            all = all.concat(texts(item.children[i]));
        return all;
    }

    TestCase {
        id: testCase
        name: "kit"
        when: windowShown

        function type(editor, text) {
            const field = fieldOf(editor);
            verify(field);
            field.forceActiveFocus();
            field.selectAll();
            for (let i = 0; i < text.length; ++i)
                keyClick(text[i]);
            keyClick(Qt.Key_Return);
            root.forceActiveFocus();
            return field;
        }

        function test_labelIsThePropertyName() {
            compare(boolEditor.label, "flag");
            compare(loose.label, "loose");
        }

        function test_boolean() {
            const button = find(boolEditor, item => item.hasOwnProperty("checkable"));
            mouseClick(button);
            compare(subject.flag, true);
            subject.flag = false;
            compare(boolEditor.value, false);
            mouseClick(button);
            compare(subject.flag, true);
        }

        function test_number() {
            const field = type(numberEditor, "20");
            compare(subject.number, 20);
            compare(valueRow.shownText, "20");
            const slider = find(numberEditor, item => item.hasOwnProperty("visualPosition"));
            compare(slider.value, 20);
            // The field goes beyond the slider's range.
            type(numberEditor, "120");
            compare(subject.number, 120);
            compare(slider.value, 50);
            subject.number = 10;
            compare(field.text, "10");
            compare(slider.value, 10);
            mousePress(slider, 1, slider.height / 2);
            mouseMove(slider, slider.width, slider.height / 2);
            mouseRelease(slider, slider.width, slider.height / 2);
            compare(subject.number, 50);
            // And it follows the object still.
            subject.number = 30;
            compare(slider.value, 30);
        }

        function test_text() {
            const field = type(textEditor, "after");
            compare(subject.text, "after");
            subject.text = "changed";
            compare(field.text, "changed");
        }

        function test_list() {
            const field = type(listEditor, "x, y,,z ");
            compare(subject.list, ["x", "y", "z"]);
            compare(field.text, "x, y, z");
        }

        function test_colour_data() {
            return [
                { tag: "six digits", typed: "#ff0000", expected: "#ff0000" },
                { tag: "with alpha", typed: "#80ff0000", expected: "#80ff0000" },
                { tag: "name", typed: "teal", expected: "#008080" },
                { tag: "nonsense", typed: "#12", expected: "#40a1bb" }
            ];
        }
        function test_colour(row) {
            subject.tone = "#40A1BB";
            const field = type(colorEditor, row.typed);
            verify(Qt.colorEqual(subject.tone, row.expected), subject.tone);
            compare(field.text, row.expected.toUpperCase());
        }

        function test_colourNameThatIsNone() {
            subject.tone = "#40A1BB";
            type(colorEditor, "nocolour");
            verify(Qt.colorEqual(subject.tone, "#40A1BB"), subject.tone);
        }

        function test_swatch() {
            const swatch = find(colorEditor, item => item.radius === 8 && Qt.colorEqual(item.color, "#90C695"));
            mouseClick(swatch);
            verify(Qt.colorEqual(subject.tone, "#90C695"));
        }

        function test_choice() {
            const box = find(choiceEditor, item => item.hasOwnProperty("displayText"));
            subject.choice = 2;
            compare(box.displayText, "Two");
            box.forceActiveFocus();
            keyClick(Qt.Key_Down);
            compare(subject.choice, 3);
            subject.choice = 1;
            compare(box.displayText, "One");
            keyClick(Qt.Key_Down);
            compare(subject.choice, 2);
        }

        function test_point() {
            type(pointEditor, "7.5");
            compare(subject.spot, Qt.point(7.5, 4));
        }

        function test_withoutTarget() {
            type(loose, "8");
            compare(loose.value, 8);
        }

        function at(item, below) { return item.mapToItem(below, 0, 0); }

        function test_demoStageBesideItsEditors() {
            demo.width = 1000;
            compare(demo.stage, live.parent);
            verify(at(first, demo).x > at(live, demo).x + live.width);
            verify(at(second, demo).y >= at(first, demo).y + first.height);
            verify(demo.height >= at(live, demo).y + live.height);
        }

        function test_demoStageAboveItsEditorsWhenNarrow() {
            demo.width = 500;
            verify(at(first, demo).y >= at(live, demo).y + live.height);
            verify(demo.height >= at(second, demo).y + second.height);
            verify(live.width > 400);
        }

        function test_demoStageGrowsWithManyEditors() {
            demo.width = 1000;
            demo.stageHeight = 20;
            verify(at(live, demo).y + live.height >= at(second, demo).y + second.height - 1);
            demo.stageHeight = 240;
            verify(live.height > 230);
        }

        function test_sectionHoldsItsItems() {
            verify(at(lower, section).y >= at(upper, section).y + upper.height);
            verify(section.height > at(lower, section).y + lower.height);
        }

        function test_log() {
            log.clear();
            log.note("a");
            log.note("b");
            log.note("b");
            compare(notes(), ["b  × 2", "a"]);
            log.note("c");
            log.note("d");
            compare(notes(), ["d", "c", "b  × 2"]);
            compare(log.last, "d");
        }
        function notes() { return texts(log).filter(text => !/signals|none yet/i.test(text)); }
        function test_logFoldsToItsNewest() {
            log.clear();
            log.note("a");
            log.note("b");
            const high = log.height;
            const fold = find(log, item => item.text === "Fold the signals");
            mouseClick(fold);
            verify(log.height < high / 2);
            compare(notes(), ["b"]);
            mouseClick(fold);
            compare(log.height, high);
            compare(notes(), ["b", "a"]);
            log.folded = false;
        }
        function test_logClears() {
            log.note("a");
            mouseClick(find(log, item => item.text === "Clear the signals"));
            compare(notes(), []);
        }
    }
}
