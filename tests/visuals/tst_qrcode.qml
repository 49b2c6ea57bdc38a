// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import QtTest 1.12
import ombrel.Controls 1.0

Item {
    width: 300
    height: 300

    Component {
        id: component
        QRCode {}
    }

    TestCase {
        name: "QRCode"
        when: windowShown

        function test_defaults() {
            const code = createTemporaryObject(component, parent);
            compare(code.url, "about:black");
            compare(code.moduleSize, 8);
            verify(Qt.colorEqual(code.darkColor, "black"));
            verify(Qt.colorEqual(code.lightColor, "white"));
            compare(code.implicitWidth, 168);
            compare(code.implicitHeight, 168);
            compare(code.width, 168);
            compare(code.antialiasing, false);
        }

        function test_moduleSizeRange_data() {
            return [
                { tag: "smallest", size: 2, taken: true },
                { tag: "largest", size: 24, taken: true },
                { tag: "below", size: 1, taken: false },
                { tag: "above", size: 25, taken: false },
                { tag: "zero", size: 0, taken: false },
                { tag: "negative", size: -8, taken: false },
            ];
        }
        function test_moduleSizeRange(row) {
            const code = createTemporaryObject(component, parent);
            if (!row.taken)
                ignoreWarning("Module size must be between 2 and 24");
            code.moduleSize = row.size;
            compare(code.moduleSize, row.taken ? row.size : 8);
            compare(code.implicitWidth, 21 * (row.taken ? row.size : 8));
        }

        function test_tooLongIsSeen() {
            const code = createTemporaryObject(component, parent);
            code.url = "https://example.org/" + Array(3000).join("x");
            verify(code.implicitWidth < 0);
            compare(code.implicitWidth, -8);
            code.url = "https://example.org/";
            compare(code.implicitWidth, 200);
        }

        // What counts is the encoded form: a character of two bytes takes six.
        function test_encodedLength() {
            const code = createTemporaryObject(component, parent);
            code.url = "x:" + Array(11).join("\u00e4");
            compare(code.implicitWidth / code.moduleSize, 33); // 62 bytes
        }

        function test_invalidUrlIsIgnored() {
            const code = createTemporaryObject(component, parent);
            code.url = "";
            compare(code.url, "about:black");
        }
    }
}
