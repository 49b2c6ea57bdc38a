// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Dialogs"
    summary: "Dialogs inside the window. Each lies above those that were open before; a modal one disables "
             + "its siblings while it is open, and gives back exactly what it took."

    DialogItemDemo {}
}
