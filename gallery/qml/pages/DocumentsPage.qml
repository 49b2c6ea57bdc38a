// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import "../kit"

Page {
    title: "Documents"
    summary: "Everything the controls carry, drop and show is a document. The folder that the gallery "
             + "was opened on is one, and so is every file and folder in it."

    DocumentDemo { id: documents }
    ContextDemo {}
}
