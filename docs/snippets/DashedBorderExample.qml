// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

Item {
    width: 200
    height: 100

    //! [border]
    DashedBorder {
        x: 20.5
        y: 20.5
        width: 159
        height: 59
        borderColor: "#40A1BB"
    }
    //! [border]
}
