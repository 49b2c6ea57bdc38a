// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Colours and fonts"
    summary: "What an application's QML asks for instead of writing it down: colours by purpose, fonts, currency "
             + "signs and sides."

    UIDemo {}
    ControlDemo {}
}
