// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/DragEvents.h"
#include "tests/support/Leftovers.h"
#include "tests/support/QmlView.h"
#include "tests/support/SignalTrap.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

using namespace support;

/// Every message about an object names, in its log context, the QML document that the object is
/// declared in. Texts and categories are what they would be without that.
class TestMessages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void namesItsDocument_data();
    void namesItsDocument();
    void namesTheDocumentThatDeclaresTheObject();
    void namesNoneWithoutADocument();
};

namespace {

struct Message
{
    QtMsgType type;
    QByteArray category;
    QByteArray file;
    QString text;
};

/// The messages that \a provoke writes; the test's own handler does not see them.
std::vector<Message> messagesOf(const std::function<void()> &provoke)
{
    static std::vector<Message> messages;
    messages.clear();
    const auto previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &context, const QString &text) {
            messages.push_back({type, context.category, context.file, text});
        });
    provoke();
    qInstallMessageHandler(previous);
    return messages;
}

QString documentOf(const char *name)
{
    return QFINDTESTDATA(QStringLiteral("data/messages/%1.qml").arg(QString::fromLatin1(name)));
}

/// Has \a item filter an event of its first child, which otherwise its window alone can do: a
/// release in the midst of a drag comes from inside the platform's loop.
void filter(QQuickItem *item, QEvent::Type type, Qt::MouseButtons buttons)
{
    struct Access : QQuickItem
    {
        using QQuickItem::childMouseEventFilter;
    };
    const QPointF at = type == QEvent::MouseMove ? QPointF(60, 60) : QPointF(20, 20);
    QMouseEvent event(type, at, Qt::LeftButton, buttons, Qt::NoModifier);
    (item->*&Access::childMouseEventFilter)(item->childItems().constFirst(), &event);
}

/// What is done to a loaded document to make its object speak; nothing when loading it is enough.
void speak(QmlView &view)
{
    const QByteArray kind = QTest::currentDataTag();
    if (kind == "DropZone") {
        DragEvents drag(view.root());
        drag.setUrls({QUrl(QStringLiteral("file:///a"))});
        drag.enter();
        evaluate(view.root(), QStringLiteral("dropHandlers = []"));
        drag.leave();
    } else if (kind == "Draggable") {
        QTest::mousePress(view.window(), Qt::LeftButton, {}, {20, 20});
        delete view.find(QStringLiteral("subject"));
        QTest::mouseRelease(view.window(), Qt::LeftButton, {}, {20, 20});
    } else if (kind == "DragZone") {
        const SignalTrap trap(view.root(), "dragActiveChanged",
                              [&view] { filter(view.root(), QEvent::MouseButtonRelease, {}); });
        filter(view.root(), QEvent::MouseButtonPress, Qt::LeftButton);
        filter(view.root(), QEvent::MouseMove, Qt::LeftButton);
        QTRY_VERIFY(trap.hasSprung());
    }
}

} // namespace

void TestMessages::cleanup()
{
    QCOMPARE(leftovers(), QString());
}

void TestMessages::namesItsDocument_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("category");
    QTest::addColumn<QString>("text");
    const QByteArray none("default");
    const QByteArray controls("ombrel.controls");
    QTest::newRow("DropZone") << int(QtWarningMsg) << none
                              << "Drop handlers changed during drag operation";
    QTest::newRow("Draggable") << int(QtWarningMsg) << none << "Destroyed Draggable during drag! ";
    QTest::newRow("DragZone") << int(QtDebugMsg) << none << "discard";
    QTest::newRow("TreeView") << int(QtCriticalMsg) << none
                              << "No delegate present - TreeView cannot render tree";
    QTest::newRow("QRCode") << int(QtWarningMsg) << none << "Module size must be between ";
    QTest::newRow("HueBox") << int(QtWarningMsg) << controls
                            << "Slider delegate must be a quick item";
    QTest::newRow("SaturationValueBox")
        << int(QtWarningMsg) << controls << "Crosshair delegate must be a quick item";
}

void TestMessages::namesItsDocument()
{
    QFETCH(int, type);
    QFETCH(QByteArray, category);
    QFETCH(QString, text);
    QmlView view;
    const QString document = documentOf(QTest::currentDataTag());
    const auto messages = messagesOf([&] {
        view.loadFile(document);
        view.show();
        speak(view);
    });
    std::vector<Message> ours;
    for (const Message &message : messages) {
        if (message.text.startsWith(text)) {
            ours.push_back(message);
        }
    }
    QCOMPARE(int(ours.size()), 1);
    QCOMPARE(int(ours.front().type), type);
    QCOMPARE(ours.front().category, category);
    QCOMPARE(ours.front().file, QUrl::fromLocalFile(document).toEncoded());
}

/// Not the one that uses that document.
void TestMessages::namesTheDocumentThatDeclaresTheObject()
{
    QmlView view;
    const auto messages = messagesOf([&] { view.loadFile(documentOf("Outer")); });
    QVERIFY(!messages.empty());
    QCOMPARE(messages.back().file, QUrl::fromLocalFile(documentOf("Inner")).toEncoded());
}

void TestMessages::namesNoneWithoutADocument()
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import ombrel.Controls 1.0\nQRCode {}", QUrl());
    const std::unique_ptr<QObject> code(component.create());
    QVERIFY2(code, qPrintable(component.errorString()));
    const auto messages = messagesOf([&] { code->setProperty("moduleSize", 2000000000); });
    QCOMPARE(int(messages.size()), 1);
    QVERIFY2(messages.front().file.isNull(), messages.front().file.constData());
}

QTEST_MAIN(TestMessages)
#include "tst_messages.moc"
