// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"

#include <QSGRendererInterface>
#include <QTest>

using namespace support;

/// The software backend draws no geometry of one's own: nothing is shown, which is said once, and
/// nothing else happens.
class TestSoftware : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(leftovers(), QString()); }
    void nothingIsDrawnAndNothingBreaks();
};

void TestSoftware::nothingIsDrawnAndNothingBreaks()
{
    QTest::ignoreMessage(
        QtWarningMsg,
        "CheckerBox, DashedBorder, Frame, HueBox, QRCode and SaturationValueBox are "
        "not drawn by the renderer \"software\": see docs/renderers.md");
    QmlView view;
    view.loadFile(QStringLiteral("data/drawn.qml"));
    view.show();
    QCOMPARE(view.window()->rendererInterface()->graphicsApi(), QSGRendererInterface::Software);
    const QColor ground(0x30, 0x60, 0x90);
    for (int round = 0; round < 2; ++round) {
        const QImage image = grab(view.window());
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                QCOMPARE(pixelError(image, {x, y}, ground), QString());
            }
        }
        evaluate(view.root(), QStringLiteral("change()"));
    }
    QTest::mouseClick(view.window(), Qt::LeftButton, {},
                      view.item("strip")->mapToScene({40, 5}).toPoint());
    QVERIFY(view.item("strip")->property("hue").toInt() > 0);
}

QTEST_MAIN(TestSoftware)
#include "tst_software.moc"
