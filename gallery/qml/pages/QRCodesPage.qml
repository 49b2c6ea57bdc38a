// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "QR codes"
    summary: "A url as a code that any phone reads. Type and the code follows every keystroke; colours, size "
             + "and smoothing never encode it again."
    QRCodeDemo {}
}
