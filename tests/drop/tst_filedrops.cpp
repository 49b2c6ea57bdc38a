// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragEvents.h"
#include "tests/support/ForeignProgram.h"
#include "tests/support/Gesture.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalRecorder.h"
#include "tests/support/Text.h"

#include <QDrag>
#include <QMimeData>
#include <QTest>

namespace {

using support::text;

QList<QUrl> urls(const char *words)
{
    QList<QUrl> result;
    const QStringList texts = text(words).split(QLatin1Char(' '));
    for (const QString &url : texts) {
        result.append(QUrl(url));
    }
    return result;
}

} // namespace

/// Files dropped into a zone in a real window, as QML sees it: by events, and by the pointer from a
/// second program over the X server's drag-and-drop protocol.
class TestFileDrops : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }

    void dataIsAnArrayOfUrls();
    void emptyDrag();
    void signalsInOrder();
    void firstDeclaredHandlerWins();
    void windowDestroyedByQmlInside_data();
    void windowDestroyedByQmlInside();
    void engineDestroyedInside_data() { windowDestroyedByQmlInside_data(); }
    void engineDestroyedInside();
    void handlerDestroyedByQmlInside_data() { windowDestroyedByQmlInside_data(); }
    void handlerDestroyedByQmlInside();

    void filesFromAnotherProgram();
    void refusedFilesFromAnotherProgram();
    void filesThatLeaveAgain();
    void cancelledInAnotherProgram();
    void hundredThousandFilesFromAnotherProgram();
    void oddUrlsFromAnotherProgram();
    void otherFormatsFromAnotherProgram();
    void filesFromAProgramWithoutQt_data();
    void filesFromAProgramWithoutQt();
    void zoneDestroyedUnderARealDrag();
    void windowDestroyedUnderARealDrag();
    void dragWithinTheWindow();
};

void TestFileDrops::dataIsAnArrayOfUrls()
{
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    support::DragEvents drag(view.window());
    drag.setUrls(urls("file:///a.pdf file:///b.txt file:///c.PDF"));
    drag.enter({50, 50});
    QObject *root = view.root();
    QCOMPARE(root->property("count").toInt(), 2);
    QCOMPARE(root->property("joined").toString(), text("file:///a.pdf file:///c.PDF"));
    QCOMPARE(root->property("isArray").toBool(), true);
    QCOMPARE(root->property("where").toPointF(), QPointF(50, 50));
    QVERIFY(root->property("hadNoSource").toBool());
    drag.drop({60, 70}, true);
    QCOMPARE(root->property("where").toPointF(), QPointF(60, 70));
}

void TestFileDrops::emptyDrag()
{
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    support::DragEvents drag(view.window());
    drag.setData(text("text/uri-list"), {});
    drag.enter({50, 150});
    QCOMPARE(view.root()->property("took").toString(), text("any"));
    QCOMPARE(view.root()->property("count").toInt(), 0);
    drag.leave();
}

void TestFileDrops::signalsInOrder()
{
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    QObject *zone = view.find(text("zone"));
    QObject *pdf = view.find(text("pdf"));
    const auto contains = [zone] { return zone->property("containsDrag").toString(); };
    support::SignalRecorder recorder;
    recorder.watch(zone, text("zone"), {text("containsDragChanged")}, contains);
    recorder.watch(pdf, text("pdf"), {}, contains);
    support::DragEvents drag(view.window());
    drag.setUrls(urls("file:///a.pdf"));
    drag.enter({50, 50});
    drag.move({51, 50});
    drag.leave();
    drag.enter({50, 50});
    drag.drop({50, 50});
    // A window hands an enter on as an enter and a move.
    QStringList entries = recorder.take();
    entries.removeAll(text("pdf.positionChanged [true]"));
    QCOMPARE(entries,
             (QStringList{text("zone.containsDragChanged [true]"), text("pdf.entered [true]"),
                          text("pdf.exited [true]"), text("zone.containsDragChanged [false]"),
                          text("zone.containsDragChanged [true]"), text("pdf.entered [true]"),
                          text("pdf.dropped [true]"), text("zone.containsDragChanged [false]")}));
}

void TestFileDrops::firstDeclaredHandlerWins()
{
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    support::DragEvents drag(view.window());
    const auto taker = [&](const char *words, const QPointF &position) {
        drag.setUrls(urls(words));
        view.root()->setProperty("took", QString());
        drag.enter(position);
        drag.leave();
        return view.root()->property("took").toString();
    };
    QCOMPARE(taker("file:///a.pdf", {50, 50}), text("pdf"));
    QCOMPARE(taker("file:///a.png file:///a.mov", {50, 50}), text("images"));
    QCOMPARE(taker("file:///a.mov", {50, 50}), text("videos"));
    QCOMPARE(taker("file:///a.txt", {50, 50}), QString());
    QCOMPARE(taker("file:///a.pdf", {50, 150}), text("any"));
}

void TestFileDrops::windowDestroyedByQmlInside_data()
{
    QTest::addColumn<QString>("moment");
    for (const char *moment : {"containsDrag", "entered", "positionChanged", "exited", "dropped"}) {
        QTest::newRow(moment) << text(moment);
    }
}

/// A drag over the zone of data/MomentSignal.qml. It leaves for the \a moment "exited", else it
/// drops.
static void dragToTheMoment(QWindow *window, const QString &moment)
{
    const QPointer<QWindow> alive(window);
    support::DragEvents drag(window);
    drag.setUrls(urls("file:///a.pdf"));
    const std::function<void()> steps[] = {
        [&] {
            drag.enter({50, 50});
        },
        [&] {
            drag.move({51, 50});
        },
        [&] {
            moment == text("exited") ? drag.leave() : void(drag.drop({51, 50}));
        }};
    for (const auto &step : steps) {
        if (alive) {
            step();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void TestFileDrops::windowDestroyedByQmlInside()
{
    QFETCH(QString, moment);
    QQmlEngine engine;
    QQmlComponent component(
        &engine, QUrl::fromLocalFile(QFINDTESTDATA("data/windowdestroyedatamoment.qml")));
    QPointer<QObject> window(component.create());
    QVERIFY2(window, qPrintable(component.errorString()));
    // destroy() works on objects that the JavaScript engine owns only.
    QQmlEngine::setObjectOwnership(window, QQmlEngine::JavaScriptOwnership);
    window->setProperty("moment", moment);
    dragToTheMoment(qobject_cast<QWindow *>(window), moment);
    QVERIFY(!window);
}

void TestFileDrops::engineDestroyedInside()
{
    QFETCH(QString, moment);
    auto *view = new QQuickView;
    QPointer<QQmlEngine> engine(view->engine());
    view->setSource(QUrl::fromLocalFile(QFINDTESTDATA("data/MomentSignal.qml")));
    QVERIFY(view->rootObject());
    view->rootObject()->setProperty("moment", moment);
    // The view owns the engine and the document.
    connect(view->rootObject(), SIGNAL(reached()), view, SLOT(deleteLater()));
    dragToTheMoment(view, moment);
    QVERIFY(!engine);
}

void TestFileDrops::handlerDestroyedByQmlInside()
{
    QFETCH(QString, moment);
    support::QmlView view;
    view.loadFile(text("data/MomentSignal.qml"));
    view.root()->setProperty("moment", moment);
    QPointer<QObject> handler(view.find(text("handler")));
    connect(view.root(), SIGNAL(reached()), handler, SLOT(deleteLater()));
    dragToTheMoment(view.window(), moment);
    QVERIFY(!handler);
    QObject *zone = view.find(text("zone"));
    QCOMPARE(zone->property("containsDrag"), QVariant(false));
    QCOMPARE(support::evaluate(zone, text("dropHandlers.length")).toInt(), 0);
}

void TestFileDrops::filesFromAnotherProgram()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("600,100"), text("--url"), text("file:///a.pdf"),
                           text("--url"), text("file:///b.txt"), text("--actions"), text("copy")}),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    auto *zone = view.item("zone");
    const QPoint over = support::positionIn(zone, 30, 40);
    QObject *root = view.root();
    support::Gesture gesture;
    gesture.move(source.geometry().center())
        .press()
        .until([&] { return source.count(text("drag")) > 0; }, "the start of the drag")
        .glide(source.geometry().center(), over)
        .hoverUntil(
            over, [&] { return root->property("moves").toInt() > 1; }, "moves in the zone")
        .then([&] {
            QVERIFY(zone->property("containsDrag").toBool());
            QCOMPARE(root->property("joined").toString(), text("file:///a.pdf"));
            QVERIFY(root->property("hadNoSource").toBool());
        })
        .move(over)
        .release()
        .until([&] { return source.count(text("finished")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(root->property("drops").toInt(), 1);
    QCOMPARE(root->property("exits").toInt(), 0);
    QCOMPARE(root->property("joined").toString(), text("file:///a.pdf"));
    QVERIFY((root->property("where").toPointF() - QPointF(30, 40)).manhattanLength() <= 1);
    QCOMPARE(zone->property("containsDrag"), QVariant(false));
    QCOMPARE(source.lines(text("result")), QStringList{text("1")});
}

void TestFileDrops::refusedFilesFromAnotherProgram()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("600,100"), text("--url"), text("file:///b.txt")}),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    auto *zone = view.item("zone");
    auto *any = view.item("anyZone");
    const QPoint over = support::positionIn(zone);
    const QPoint overAny = support::positionIn(any);
    support::Gesture gesture;
    // The second zone takes it: that it came proves that the first one has been asked.
    gesture.move(source.geometry().center())
        .press()
        .glide(source.geometry().center(), over)
        .glide(over, overAny)
        .hoverUntil(
            overAny, [&] { return any->property("containsDrag").toBool(); }, "the other zone")
        .glide(overAny, over)
        .hoverUntil(
            over, [&] { return !any->property("containsDrag").toBool(); }, "the way back")
        .release()
        .until([&] { return source.count(text("result")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(source.lines(text("result")), QStringList{text("0")});
    QCOMPARE(view.root()->property("drops").toInt(), 0);
    QCOMPARE(view.root()->property("took").toString(), text("any"));
}

void TestFileDrops::filesThatLeaveAgain()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("600,100"), text("--url"), text("file:///a.pdf")}),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    auto *zone = view.item("zone");
    const QPoint over = support::positionIn(zone);
    const QPoint home = source.geometry().center();
    support::Gesture gesture;
    gesture
        .drag(
            home, over, [&] { return zone->property("containsDrag").toBool(); }, "the drag")
        .glide(over, home)
        .hoverUntil(
            home, [&] { return !zone->property("containsDrag").toBool(); }, "the leave")
        .release()
        .until([&] { return source.count(text("result")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(view.root()->property("exits").toInt(), 1);
    QCOMPARE(view.root()->property("drops").toInt(), 0);
    QCOMPARE(view.root()->property("where").toPointF(), QPointF(0, 0));
    QCOMPARE(view.root()->property("joined").toString(), text("file:///a.pdf"));
}

void TestFileDrops::cancelledInAnotherProgram()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("600,100"), text("--url"), text("file:///a.pdf")}),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    auto *zone = view.item("zone");
    const QPoint over = support::positionIn(zone);
    const QPoint home = source.geometry().center();
    support::Gesture gesture;
    gesture
        .drag(
            home, over, [&] { return zone->property("containsDrag").toBool(); }, "the drag")
        .key(Qt::Key_Escape)
        .until([&] { return source.count(text("result")) > 0; }, "the end of the drag")
        .until([&] { return !zone->property("containsDrag").toBool(); }, "the leave")
        .release();
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(view.root()->property("drops").toInt(), 0);
    QCOMPARE(view.root()->property("exits").toInt(), 1);
}

void TestFileDrops::hundredThousandFilesFromAnotherProgram()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("600,100"), text("--many"), text("100000")}),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    auto *zone = view.item("zone");
    const QPoint over = support::positionIn(zone);
    support::Gesture gesture;
    gesture.setPatience(60000);
    gesture
        .drag(
            source.geometry().center(), over,
            [&] { return view.root()->property("moves").toInt() > 0 && source.mayDrop(); },
            "the drag")
        .release()
        .until([&] { return source.count(text("finished")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(view.root()->property("drops").toInt(), 1);
    QCOMPARE(view.root()->property("took").toString(), text("images"));
    QCOMPARE(view.root()->property("count").toInt(), 100000);
}

void TestFileDrops::oddUrlsFromAnotherProgram()
{
    support::ForeignProgram source(text("xdnd_source"));
    const QByteArray list = "file:///\r\nfile:///%\r\nfile:///%zz.pdf\r\n\r\nmailto:x\r\n"
                            "http://[broken\r\n# a comment\r\nfile:///folder/\r\n";
    QVERIFY2(source.start({text("--at"), text("600,100"), text("--mime"),
                           text("text/uri-list=") + QString::fromLatin1(list.toHex())}),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    auto *zone = view.item("zone");
    const QPoint over = support::positionIn(zone);
    support::Gesture gesture;
    gesture
        .drag(
            source.geometry().center(), over,
            [&] { return view.root()->property("moves").toInt() > 0 && source.mayDrop(); },
            "the drag")
        .release()
        .until([&] { return source.count(text("finished")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(view.root()->property("took").toString(), text("pdf"));
    QCOMPARE(view.root()->property("count").toInt(), 1);
    QVERIFY(view.root()->property("joined").toString().endsWith(text("zz.pdf")));
}

void TestFileDrops::otherFormatsFromAnotherProgram()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("600,100"), text("--mime"),
                           text("application/x-test=00ff"), text("--mime"),
                           text("text/plain=66696c653a2f2f2f612e706466")}),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    auto *any = view.item("anyZone");
    auto *area = view.item("area");
    const QPoint over = support::positionIn(any);
    const QPoint elsewhere = support::positionIn(area);
    support::Gesture gesture;
    // Qt Quick's own area takes it afterwards: the window has seen the drag.
    gesture.move(source.geometry().center())
        .press()
        .glide(source.geometry().center(), over)
        .glide(over, elsewhere)
        .hoverUntil(
            elsewhere, [&] { return area->property("containsDrag").toBool(); }, "the area beside")
        .glide(elsewhere, source.geometry().center())
        .release()
        .until([&] { return source.count(text("result")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(view.root()->property("took").toString(), QString());
}

void TestFileDrops::filesFromAProgramWithoutQt_data()
{
    QTest::addColumn<QStringList>("offer");
    QTest::addColumn<QString>("joined");
    QTest::newRow("two files") << QStringList{text("--url"), text("file:///a.pdf"), text("--url"),
                                              text("file:///b%20c.PDF")}
                               << text("file:///a.pdf file:///b c.PDF");
    QTest::newRow("one of two fits")
        << QStringList{text("--url"), text("file:///a.pdf"), text("--url"), text("file:///b.txt")}
        << text("file:///a.pdf");
    QTest::newRow("text beside files")
        << QStringList{text("--text"), text("words"), text("--url"), text("file:///a.pdf")}
        << text("file:///a.pdf");
    QTest::newRow("no file fits") << QStringList{text("--url"), text("file:///b.txt")} << QString();
    QTest::newRow("only text") << QStringList{text("--text"), text("a.pdf")} << QString();
}

void TestFileDrops::filesFromAProgramWithoutQt()
{
    QFETCH(QStringList, offer);
    QFETCH(QString, joined);
    const bool taken = !joined.isEmpty();
    support::ForeignProgram source(text("plain_xdnd_source"));
    QVERIFY2(source.start(QStringList{text("--at"), text("600,100")} + offer),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    auto *zone = view.item("zone");
    const QPoint over = support::positionIn(zone, 30, 40);
    QObject *root = view.root();
    support::Gesture gesture;
    gesture.move(source.geometry().center())
        .press()
        .until([&] { return source.count(text("drag")) > 0; }, "the start of the drag")
        .glide(source.geometry().center(), over);
    if (taken) {
        gesture.hoverUntil(
            over, [&] { return root->property("moves").toInt() > 1; }, "moves in the zone");
    }
    gesture.move(over).release().until([&] { return source.count(text("result")) > 0; },
                                       "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(source.lines(text("result")), QStringList{text(taken ? "1" : "0")});
    QCOMPARE(root->property("drops").toInt(), taken ? 1 : 0);
    QCOMPARE(root->property("joined").toString(), joined);
    QCOMPARE(zone->property("containsDrag"), QVariant(false));
    if (taken) {
        // The zone leaves the drop as it is delivered, and that is not accepted.
        QCOMPARE(source.lines(text("finished")), QStringList{text("0")});
        QVERIFY(root->property("hadNoSource").toBool());
        QVERIFY((root->property("where").toPointF() - QPointF(30, 40)).manhattanLength() <= 1);
    }
}

void TestFileDrops::zoneDestroyedUnderARealDrag()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("600,100"), text("--url"), text("file:///a.pdf")}),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    QPointer<QQuickItem> zone(view.item("zone"));
    const QPoint over = support::positionIn(zone);
    support::Gesture gesture;
    gesture
        .drag(
            source.geometry().center(), over,
            [&] { return zone->property("containsDrag").toBool(); }, "the drag")
        .then([&] { zone->deleteLater(); })
        .until([&] { return !zone; }, "the zone's end")
        .move(over + QPoint(3, 3))
        .move(over + QPoint(5, 5))
        .release()
        .until([&] { return source.count(text("result")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    QCOMPARE(view.root()->property("drops").toInt(), 0);
}

void TestFileDrops::windowDestroyedUnderARealDrag()
{
    support::ForeignProgram source(text("xdnd_source"));
    QVERIFY2(source.start({text("--at"), text("600,100"), text("--url"), text("file:///a.pdf")}),
             qPrintable(source.error()));
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    QPointer<QQuickItem> zone(view.item("zone"));
    const QPoint over = support::positionIn(zone);
    support::Gesture gesture;
    gesture
        .drag(
            source.geometry().center(), over,
            [&] { return zone->property("containsDrag").toBool(); }, "the drag")
        .then([&] { view.close(); })
        .until([&] { return !zone; }, "the window's end")
        .move(over + QPoint(3, 3))
        .release()
        .until([&] { return source.count(text("result")) > 0; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
}

void TestFileDrops::dragWithinTheWindow()
{
    support::QmlView view;
    view.loadFile(text("data/zones.qml"));
    view.show();
    auto *zone = view.item("zone");
    auto *any = view.item("anyZone");
    const QPoint from = support::positionIn(any);
    const QPoint over = support::positionIn(zone);
    QObject origin;
    bool ended = false;
    Qt::DropAction result = Qt::IgnoreAction;
    support::Gesture gesture;
    gesture.move(from)
        .press()
        .then([&] {
            auto *drag = new QDrag(&origin);
            auto *mimeData = new QMimeData;
            mimeData->setUrls(urls("file:///a.pdf"));
            drag->setMimeData(mimeData);
            result = drag->exec(Qt::CopyAction);
            ended = true;
        })
        .glide(from, over)
        .hoverUntil(
            over, [&] { return view.root()->property("moves").toInt() > 1; }, "the drag")
        .release()
        .until([&] { return ended; }, "the end of the drag");
    QVERIFY2(gesture.run(), gesture.error());
    // A zone leaves the drop as windows deliver it, which is ignored: the drag's own program is
    // not told an action.
    QCOMPARE(result, Qt::IgnoreAction);
    QCOMPARE(view.root()->property("drops").toInt(), 1);
    QVERIFY(!view.root()->property("hadNoSource").toBool());
    QCOMPARE(zone->property("containsDrag"), QVariant(false));
}

QTEST_MAIN(TestFileDrops)
#include "tst_filedrops.moc"
