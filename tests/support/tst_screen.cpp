// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Pixels.h"
#include "tests/support/Screen.h"

#include <QPainter>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRasterWindow>
#include <QSGSimpleRectNode>
#include <QTest>

using namespace support;

namespace {

/// Shows one colour, and a new one when it is painted again.
class Sheet : public QRasterWindow
{
public:
    QColor color = Qt::red;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(0, 0, 50, 50, color);
        ++paints;
    }
};

/// Takes a new colour over only when it is told to mark its node.
class SilentItem : public QQuickItem
{
public:
    explicit SilentItem(QQuickItem *parent)
        : QQuickItem(parent)
    {
        setFlag(ItemHasContents);
        setSize({50, 50});
    }
    QColor color = Qt::red;
    bool marks = false;

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *) override
    {
        auto *node = static_cast<Node *>(oldNode);
        if (!node) {
            node = new Node;
            node->setRect(0, 0, 50, 50);
            node->setColor(color);
        }
        if (marks) {
            node->setColor(color);
        }
        return node;
    }

private:
    using Node = QSGSimpleRectNode;
};

} // namespace

/// The helpers that look at windows from outside see what a grab does not.
class TestScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void screenShowsOnlyWhatWasPainted();
    void framesAreCountedWhenTheyCome();
};

void TestScreen::screenShowsOnlyWhatWasPainted()
{
    Sheet sheet;
    pinToScreen(&sheet);
    sheet.resize(50, 50);
    sheet.show();
    QVERIFY(QTest::qWaitForWindowExposed(&sheet));
    QTRY_COMPARE(pixelError(screenPixels(&sheet), {25, 25}, Qt::red), QString());
    QCOMPARE(screenPixels(&sheet).size(), QSize(50, 50));
    // The platform may ask for the sheet once more, which shows the colour of that moment. A
    // picture tells something only if nothing was painted since the colour before it.
    QString difference;
    int paints = -1;
    for (int hue = 0; paints != sheet.paints; hue += 30) {
        QVERIFY(hue < 180);
        sheet.color = QColor::fromHsv(hue + 60, 255, 255);
        paints = sheet.paints;
        QTest::qWait(50);
        difference = pixelError(screenPixels(&sheet), {25, 25}, sheet.color);
    }
    QVERIFY(!difference.isEmpty());
    sheet.color = Qt::blue;
    sheet.update();
    QTRY_COMPARE(pixelError(screenPixels(&sheet), {25, 25}, Qt::blue), QString());
}

void TestScreen::framesAreCountedWhenTheyCome()
{
    QQuickWindow window;
    pinToScreen(&window);
    window.resize(50, 50);
    auto *item = new SilentItem(window.contentItem());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    FrameCounter frames(&window);
    frames.settle();
    QTRY_COMPARE(pixelError(screenPixels(&window), {25, 25}, Qt::red), QString());

    frames.reset();
    item->color = Qt::blue;
    frames.settle();
    QCOMPARE(frames.count(), 0);
    QVERIFY(!pixelError(screenPixels(&window), {25, 25}, Qt::blue).isEmpty());

    item->marks = true;
    item->update();
    QTRY_VERIFY(frames.count() > 0);
    QTRY_COMPARE(pixelError(screenPixels(&window), {25, 25}, Qt::blue), QString());
}

QTEST_MAIN(TestScreen)
#include "tst_screen.moc"
