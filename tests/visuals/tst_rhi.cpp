// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"
#include "tests/support/Pixels.h"
#include "tests/support/QmlView.h"

#include <QTest>

using namespace support;

namespace {

// Qt reads it when the first window is made.
const bool rhiIsChosen = qputenv("QSG_RHI", "1");

} // namespace

/// Qt's other way to OpenGL, which takes no shaders written as GLSL: items with such shaders leave
/// their nodes out and say so, once; the others are drawn.
class TestRhi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownShadersAreLeftOutWithOneMessage();
    void cleanup();
};

static bool isBlank(const QImage &image, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (!pixelError(image, {x, y}, QColor(0x30, 0x60, 0x90)).isEmpty()) {
                return false;
            }
        }
    }
    return true;
}

void TestRhi::ownShadersAreLeftOutWithOneMessage()
{
    QVERIFY(rhiIsChosen);
    QTest::ignoreMessage(
        QtWarningMsg,
        "CheckerBox, DashedBorder and QRCode are not drawn by the renderer \"rhi\": "
        "see docs/renderers.md");
    // The message comes once for all windows, items and changes.
    for (int window = 0; window < 2; ++window) {
        QmlView view;
        view.loadFile(QStringLiteral("data/drawn.qml"));
        view.show();
        for (int round = 0; round < 2; ++round) {
            framesWhileIdle(view.window(), 0);
            const QImage image = grab(view.window());
            const QVariantList own = evaluate(view.root(), QStringLiteral("own")).toList();
            QCOMPARE(own.size(), 3);
            for (const QVariant &area : own) {
                QVERIFY(isBlank(image, area.toRectF().toRect()));
            }
            const QVariantList others = evaluate(view.root(), QStringLiteral("others")).toList();
            QCOMPARE(others.size(), 3);
            for (const QVariant &area : others) {
                QVERIFY(!isBlank(image, area.toRectF().toRect()));
            }
            evaluate(view.root(), QStringLiteral("change()"));
        }
    }
}

void TestRhi::cleanup()
{
    QCOMPARE(leftovers(), QString());
}

QTEST_MAIN(TestRhi)
#include "tst_rhi.moc"
