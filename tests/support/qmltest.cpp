// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <QtQuickTest>

// Runs a tst_*.qml file: TestCase functions, the modules of the build found through
// QML2_IMPORT_PATH.
QUICK_TEST_MAIN(ombrel)
