// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

import QtQuick 2.12
import ombrel.Controls 1.0

QRCode {
    width: 100
    height: 100
    moduleSize: 2000000000
}
