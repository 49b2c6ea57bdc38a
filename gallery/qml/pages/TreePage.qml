// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Tree view"
    summary: "The folder that the gallery was opened on, as a tree of rows that collapse."

    TreeViewDemo {}
}
