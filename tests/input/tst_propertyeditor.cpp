// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/PropertyEditor.h"
#include "tests/support/Leftovers.h"

#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickTextDocument>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

#include <functional>
#include <memory>

using namespace om::controls;
using om::data::Document;

namespace {

/// Takes keys and presses, and counts them.
class Field : public QQuickItem
{
public:
    explicit Field(QQuickItem *parent)
        : QQuickItem(parent)
    {
        setAcceptedMouseButtons(Qt::LeftButton);
    }
    QList<int> keys;
    int presses = 0;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        keys.append(event->key());
        event->accept();
    }
    void mousePressEvent(QMouseEvent *event) override
    {
        ++presses;
        event->accept();
    }
};

const QPoint inside(60, 60);
const QPoint outside(180, 180);

/// A pad that fills the window, and over it an editor at 20, 20 of 80 × 80 with a field inside.
struct Scene
{
    Scene()
        : window(new QQuickWindow)
        , pad(new Field(window->contentItem()))
        , editor(new PropertyEditor(window->contentItem()))
        , field(new Field(editor))
    {
        window->resize(200, 200);
        pad->setSize(QSizeF(200, 200));
        editor->setPosition(QPointF(20, 20));
        editor->setSize(QSizeF(80, 80));
        field->setSize(QSizeF(80, 80));
        field->setFocus(true);
        watch(editor);
    }
    ~Scene() { delete window; }

    void watch(PropertyEditor *which)
    {
        const auto note = [this](const char *what) {
            return [this, what] {
                happened.append(QLatin1String(what));
                if (then && happened.last() == thenAt) {
                    // By copy: what it destroys may be the scene's.
                    const auto call = then;
                    call();
                }
            };
        };
        using Editor = PropertyEditor;
        QObject::connect(which, &Editor::documentChanged, note("documentChanged"));
        QObject::connect(which, &Editor::propertyChanged, note("propertyChanged"));
        QObject::connect(which, &Editor::beginEdit, note("beginEdit"));
        QObject::connect(which, &Editor::endEdit, note("endEdit"));
        QObject::connect(which, &Editor::escapePressed, note("escapePressed"));
        QObject::connect(which, &Editor::tabPressed, note("tabPressed"));
        QObject::connect(which, &Editor::backTabPressed, note("backTabPressed"));
        QObject::connect(which, &Editor::enterPressed, note("enterPressed"));
        QObject::connect(which, &Editor::spacePressed, note("spacePressed"));
    }
    bool show()
    {
        window->show();
        window->requestActivate();
        return QTest::qWaitForWindowActive(window);
    }
    bool edit()
    {
        if (!show()) {
            return false;
        }
        editor->forceActiveFocus();
        const bool begun = take() == QStringList(QStringLiteral("beginEdit"));
        return begun && field->hasActiveFocus();
    }
    QStringList take()
    {
        QStringList taken;
        taken.swap(happened);
        return taken;
    }
    void key(int which, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool repeated = false)
    {
        QKeyEvent event(QEvent::KeyPress, which, modifiers, QString(), repeated);
        QCoreApplication::sendEvent(window, &event);
    }
    void press(const QPoint &position)
    {
        QMouseEvent event(QEvent::MouseButtonPress, position, window->mapToGlobal(position),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &event);
        if (window) {
            QMouseEvent release(QEvent::MouseButtonRelease, position, window->mapToGlobal(position),
                                Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(window, &release);
        }
    }

    QStringList happened;
    QString thenAt;
    std::function<void()> then;
    QPointer<QQuickWindow> window;
    QPointer<Field> pad;
    QPointer<PropertyEditor> editor;
    QPointer<Field> field;
};

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// A TextEdit with the paragraphs "a", "b", "c".
struct Text
{
    Text()
    {
        QQmlComponent component(&engine);
        component.setData("import QtQuick 2.12\nTextEdit { text: 'a\\nb\\nc' }", QUrl());
        item.reset(component.create());
        document = item->property("textDocument").value<QQuickTextDocument *>();
    }
    QList<qreal> heights() const
    {
        QList<qreal> found;
        for (QTextBlock block = document->textDocument()->begin(); block.isValid();
             block = block.next()) {
            found.append(block.blockFormat().lineHeight());
        }
        return found;
    }
    QQmlEngine engine;
    std::unique_ptr<QObject> item;
    QQuickTextDocument *document = nullptr;
};

} // namespace

class TestPropertyEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void signalsInOrder();
    void construction();
    void documentAndProperty();
    void documentDestroyed();
    void focusBeginsAndEndsEditing();
    void keys_data();
    void keys();
    void keysWhenNotEditing();
    void pressInside();
    void pressOutside();
    void pressOutsideOfWhatContains();
    void withoutAWindowTheEditingFlagStays();
    void movedToAnotherWindowWhileEditing();
    void windowDestroyedWhileEditing();
    void editorDestroyedWhileEditing();
    void readWhileItIsDestroyed();
    void destroyedByItsShape();
    void destroyedInItsSignals_data();
    void destroyedInItsSignals();
    void lineHeight_data();
    void lineHeight();
    void lineHeightIsOneEdit();
    void lineHeightOfNothing();
};

void TestPropertyEditor::signalsInOrder()
{
    QStringList names;
    const QMetaObject &type = PropertyEditor::staticMetaObject;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        if (type.method(i).methodType() == QMetaMethod::Signal) {
            names.append(QString::fromLatin1(type.method(i).name()));
        }
    }
    QCOMPARE(names,
             words("documentChanged propertyChanged beginEdit endEdit escapePressed tabPressed "
                   "backTabPressed enterPressed spacePressed"));
    const QMetaMethod slot = type.method(type.indexOfMethod("handleFocusChange(bool)"));
    QCOMPARE(slot.methodType(), QMetaMethod::Slot);
    QCOMPARE(slot.access(), QMetaMethod::Private);
}

void TestPropertyEditor::construction()
{
    PropertyEditor editor;
    QVERIFY(editor.isFocusScope());
    QVERIFY(editor.activeFocusOnTab());
    QVERIFY(!editor.document());
    QCOMPARE(editor.property(), QString());
}

void TestPropertyEditor::documentAndProperty()
{
    Scene scene;
    Document document;
    scene.editor->setDocument(nullptr);
    scene.editor->setProperty(QString());
    QCOMPARE(scene.take(), QStringList());
    scene.editor->setDocument(&document);
    scene.editor->setDocument(&document);
    QCOMPARE(scene.editor->document(), &document);
    QCOMPARE(scene.take(), words("documentChanged"));
    scene.editor->setProperty(QStringLiteral("name"));
    scene.editor->setProperty(QStringLiteral("name"));
    QCOMPARE(scene.editor->property(), QStringLiteral("name"));
    QCOMPARE(scene.take(), words("propertyChanged"));
    scene.editor->setDocument(nullptr);
    QCOMPARE(scene.take(), words("documentChanged"));
    // Nothing of the document's own is listened to.
    scene.editor->setDocument(&document);
    scene.take();
    document.setName(QStringLiteral("other"));
    QCOMPARE(scene.take(), QStringList());
}

void TestPropertyEditor::documentDestroyed()
{
    Scene scene;
    auto document = std::make_unique<Document>();
    scene.editor->setDocument(document.get());
    QVERIFY(scene.show());
    scene.take();
    scene.editor->forceActiveFocus();
    document.reset();
    QVERIFY(!scene.editor->document());
    QCOMPARE(scene.take(), words("beginEdit"));
    scene.key(Qt::Key_Return);
    QCOMPARE(scene.take(), words("enterPressed"));
}

void TestPropertyEditor::focusBeginsAndEndsEditing()
{
    Scene scene;
    QVERIFY(scene.edit());
    // Within the editor the focus may go where it likes.
    Field second(scene.editor);
    second.forceActiveFocus();
    QCOMPARE(scene.take(), QStringList());
    scene.pad->forceActiveFocus();
    QCOMPARE(scene.take(), words("endEdit"));
    scene.editor->forceActiveFocus();
    QCOMPARE(scene.take(), words("beginEdit"));
    second.setParentItem(nullptr);
}

void TestPropertyEditor::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, int key, int modifiers, const char *expected) {
        QTest::newRow(name) << key << modifiers << QString::fromLatin1(expected);
    };
    row("Escape", Qt::Key_Escape, 0, "escapePressed");
    row("Tab", Qt::Key_Tab, 0, "tabPressed");
    row("Tab with Shift", Qt::Key_Tab, Qt::ShiftModifier, "backTabPressed");
    row("Tab with Control", Qt::Key_Tab, Qt::ControlModifier, "tabPressed");
    row("Backtab", Qt::Key_Backtab, 0, "backTabPressed");
    row("Backtab with Shift", Qt::Key_Backtab, Qt::ShiftModifier, "backTabPressed");
    row("Return", Qt::Key_Return, 0, "enterPressed");
    row("Return with Alt", Qt::Key_Return, Qt::AltModifier, "enterPressed");
    row("Enter", Qt::Key_Enter, Qt::KeypadModifier, "enterPressed");
    row("Space", Qt::Key_Space, 0, "spacePressed");
    row("Space with Shift", Qt::Key_Space, Qt::ShiftModifier, "spacePressed");
    row("any other", Qt::Key_A, 0, "");
}

void TestPropertyEditor::keys()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, expected);
    Scene scene;
    QVERIFY(scene.edit());
    const auto held = static_cast<Qt::KeyboardModifiers>(modifiers);
    scene.key(key, held);
    QCOMPARE(scene.take().join(QLatin1Char(' ')), expected);
    // The key has reached the field all the same, and a repeated press signals again.
    QCOMPARE(scene.field->keys, QList<int>({key}));
    scene.key(key, held, true);
    QCOMPARE(scene.take().join(QLatin1Char(' ')), expected);
    QCOMPARE(scene.field->keys, QList<int>({key, key}));
    QKeyEvent release(QEvent::KeyRelease, key, held);
    QCoreApplication::sendEvent(scene.window, &release);
    QCOMPARE(scene.take(), QStringList());
}

void TestPropertyEditor::keysWhenNotEditing()
{
    Scene scene;
    QVERIFY(scene.edit());
    scene.pad->forceActiveFocus();
    QCOMPARE(scene.take(), words("endEdit"));
    scene.key(Qt::Key_Return);
    scene.press(outside);
    QCOMPARE(scene.take(), QStringList());
    QCOMPARE(scene.pad->keys, QList<int>({Qt::Key_Return}));
}

void TestPropertyEditor::pressInside()
{
    Scene scene;
    QVERIFY(scene.edit());
    scene.press(inside);
    QCOMPARE(scene.take(), QStringList());
    QVERIFY(scene.editor->hasActiveFocus());
    QCOMPARE(scene.field->presses, 1);
}

void TestPropertyEditor::pressOutside()
{
    Scene scene;
    QVERIFY(scene.edit());
    scene.press(outside);
    QCOMPARE(scene.take(), words("endEdit"));
    QVERIFY(!scene.editor->hasFocus());
    QVERIFY(!scene.editor->hasActiveFocus());
    // The press has reached what it was meant for.
    QCOMPARE(scene.pad->presses, 1);
    scene.press(outside);
    QCOMPARE(scene.take(), QStringList());
    // The field keeps the focus within the scope: editing begins with the editor's focus.
    scene.editor->forceActiveFocus();
    QCOMPARE(scene.take(), words("beginEdit"));
    QVERIFY(scene.field->hasActiveFocus());
}

void TestPropertyEditor::pressOutsideOfWhatContains()
{
    // What counts is the item's own idea of what it contains, in its own coordinates.
    Scene scene;
    QVERIFY(scene.edit());
    scene.editor->setTransformOrigin(QQuickItem::TopLeft);
    scene.editor->setScale(2);
    scene.press(QPoint(150, 150));
    QCOMPARE(scene.take(), QStringList());
    scene.editor->setScale(0.25);
    scene.press(inside);
    QCOMPARE(scene.take(), words("endEdit"));
}

void TestPropertyEditor::withoutAWindowTheEditingFlagStays()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.editor->setParentItem(nullptr);
    QVERIFY(!scene.editor->window());
    const auto focus = [&scene](bool has) {
        QMetaObject::invokeMethod(scene.editor, "activeFocusChanged", Q_ARG(bool, has));
    };
    focus(false);
    QCOMPARE(scene.take(), QStringList());
    focus(true);
    QCOMPARE(scene.take(), words("beginEdit"));
    focus(false);
    QCOMPARE(scene.take(), words("endEdit"));
    focus(true);
    QCOMPARE(scene.take(), QStringList());
    focus(false);
    QCOMPARE(scene.take(), words("endEdit"));
    // No filter, no keys.
    scene.key(Qt::Key_Return);
    QCOMPARE(scene.take(), QStringList());
    // In a window again: no second beginning, one end, and then all is as new.
    scene.editor->setParentItem(scene.window->contentItem());
    scene.editor->forceActiveFocus();
    QCOMPARE(scene.take(), QStringList());
    scene.pad->forceActiveFocus();
    QCOMPARE(scene.take(), words("endEdit"));
    scene.editor->forceActiveFocus();
    QCOMPARE(scene.take(), words("beginEdit"));
    delete scene.editor;
}

void TestPropertyEditor::movedToAnotherWindowWhileEditing()
{
    Scene scene;
    QVERIFY(scene.edit());
    QQuickWindow other;
    scene.editor->setParentItem(other.contentItem());
    scene.take();
    scene.key(Qt::Key_Return);
    scene.press(outside);
    QCOMPARE(scene.take(), QStringList());
    delete scene.editor;
}

void TestPropertyEditor::windowDestroyedWhileEditing()
{
    Scene scene;
    QVERIFY(scene.edit());
    const auto editor = std::make_unique<PropertyEditor>();
    editor->setParentItem(scene.window->contentItem());
    scene.watch(editor.get());
    editor->forceActiveFocus();
    // Qt tells whoever gains the focus first.
    QCOMPARE(scene.take(), words("beginEdit endEdit"));
    delete scene.window;
    QVERIFY(!scene.editor);
    QVERIFY(!editor->window());
    editor->setFocus(false);
    scene.take();
    // Usable in the next window.
    Scene next;
    QVERIFY(next.show());
    next.watch(editor.get());
    editor->setParentItem(next.window->contentItem());
    editor->forceActiveFocus();
    next.take();
    next.key(Qt::Key_Escape);
    QVERIFY(editor->hasActiveFocus());
    editor->setParentItem(nullptr);
}

void TestPropertyEditor::editorDestroyedWhileEditing()
{
    Scene scene;
    QVERIFY(scene.edit());
    delete scene.editor;
    scene.key(Qt::Key_Return);
    scene.press(outside);
    QCOMPARE(scene.take(), QStringList());
    QCOMPARE(scene.pad->presses, 1);
}

/// The shape of an item is the application's code, too.
/// The destructor leaves the item tree, which takes the focus: handlers of that may read the
/// editor.
void TestPropertyEditor::readWhileItIsDestroyed()
{
    Scene scene;
    QVERIFY(scene.edit());
    scene.editor->setProperty(QStringLiteral("title"));
    QStringList seen;
    const QObject *const editor = scene.editor;
    const auto look = [&seen, editor] { seen.append(editor->property("property").toString()); };
    connect(scene.editor, &QQuickItem::activeFocusChanged, this, look);
    connect(scene.editor, &QQuickItem::windowChanged, this, look);
    delete scene.editor;
    QCOMPARE(seen, (QStringList{QStringLiteral("title"), QStringLiteral("title")}));
    QCOMPARE(scene.take(), QStringList(QStringLiteral("propertyChanged")));
}

void TestPropertyEditor::destroyedByItsShape()
{
    class Shape : public QQuickItem
    {
    public:
        using QQuickItem::QQuickItem;
        bool contains(const QPointF &) const override
        {
            delete editor.data();
            return false;
        }
        QPointer<PropertyEditor> editor;
    };
    Scene scene;
    QVERIFY(scene.edit());
    Shape shape(scene.pad);
    shape.editor = scene.editor;
    static_cast<QObject *>(scene.editor)
        ->setProperty("containmentMask", QVariant::fromValue<QObject *>(&shape));
    scene.press(outside);
    QVERIFY(!shape.editor);
    QCOMPARE(scene.pad->presses, 1);
}

void TestPropertyEditor::destroyedInItsSignals_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("what");
    const QStringList all = words("documentChanged propertyChanged beginEdit endEdit escapePressed "
                                  "tabPressed backTabPressed enterPressed spacePressed");
    for (const QString &signal : all) {
        for (const QString &what : words("editor editor-later document window window-later")) {
            // Deleted later: Qt uses the item after its signal while it moves the focus.
            const bool isAtOnce =
                what == QLatin1String("editor") || what == QLatin1String("window");
            if (isAtOnce && signal.endsWith(QLatin1String("Edit"))) {
                continue;
            }
            QTest::newRow(qPrintable(what + QStringLiteral(" in ") + signal)) << signal << what;
        }
    }
}

void TestPropertyEditor::destroyedInItsSignals()
{
    QFETCH(QString, signal);
    QFETCH(QString, what);
    Scene scene;
    QVERIFY(scene.show());
    const QPointer<Document> document(new Document);
    const QPointer<Document> second(new Document);
    scene.editor->setDocument(document);
    scene.take();
    int deaths = 0;
    scene.thenAt = signal;
    scene.then = [&] {
        ++deaths;
        if (what == QLatin1String("editor")) {
            delete scene.editor;
        } else if (what == QLatin1String("editor-later")) {
            scene.editor->deleteLater();
        } else if (what == QLatin1String("document")) {
            delete document;
            delete second;
        } else if (what == QLatin1String("window")) {
            delete scene.window;
        } else {
            scene.window->deleteLater();
        }
        scene.then = nullptr;
    };
    const auto keyAfterFocus = [&scene](int key) {
        scene.editor->forceActiveFocus();
        scene.key(key);
    };
    if (signal == QLatin1String("documentChanged")) {
        scene.editor->setDocument(second);
    } else if (signal == QLatin1String("propertyChanged")) {
        scene.editor->setProperty(QStringLiteral("name"));
    } else if (signal == QLatin1String("beginEdit")) {
        scene.editor->forceActiveFocus();
    } else if (signal == QLatin1String("endEdit")) {
        scene.editor->forceActiveFocus();
        scene.press(outside);
    } else if (signal == QLatin1String("escapePressed")) {
        keyAfterFocus(Qt::Key_Escape);
    } else if (signal == QLatin1String("tabPressed")) {
        keyAfterFocus(Qt::Key_Tab);
    } else if (signal == QLatin1String("backTabPressed")) {
        keyAfterFocus(Qt::Key_Backtab);
    } else if (signal == QLatin1String("enterPressed")) {
        keyAfterFocus(Qt::Key_Return);
    } else {
        keyAfterFocus(Qt::Key_Space);
    }
    QCOMPARE(deaths, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(scene.editor.isNull(), what != QLatin1String("document"));
    QCOMPARE(scene.window.isNull(), what.startsWith(QLatin1String("window")));
    if (scene.window) {
        scene.key(Qt::Key_Return);
        scene.press(outside);
    }
    delete document;
    delete second;
}

void TestPropertyEditor::lineHeight_data()
{
    QTest::addColumn<double>("height");
    QTest::addColumn<qreal>("percent");
    QTest::newRow("single") << 1.0 << 100.0;
    QTest::newRow("one and a half") << 1.5 << 150.0;
    QTest::newRow("1.15 times 100 is just below 115") << 1.15 << 114.0;
    QTest::newRow("less than a percent") << 0.004 << 0.0;
    QTest::newRow("negative: downwards") << -0.005 << -1.0;
    QTest::newRow("double") << 2.0 << 200.0;
}

void TestPropertyEditor::lineHeight()
{
    QFETCH(double, height);
    QFETCH(qreal, percent);
    Text text;
    PropertyEditor editor;
    editor.setLineHeight(text.document, height);
    QCOMPARE(text.heights(), QList<qreal>({percent, percent, percent}));
    const QTextBlockFormat format = text.document->textDocument()->begin().blockFormat();
    QCOMPARE(format.lineHeightType(), int(QTextBlockFormat::ProportionalHeight));
    QCOMPARE(text.document->textDocument()->toPlainText(), QStringLiteral("a\nb\nc"));
}

/// A change a paragraph would cost a layout of all that follows, and be undone in as many steps.
void TestPropertyEditor::lineHeightIsOneEdit()
{
    Text text;
    QSignalSpy changed(text.document->textDocument(), &QTextDocument::contentsChanged);
    QSignalSpy typed(text.item.get(), SIGNAL(textChanged()));
    PropertyEditor().setLineHeight(text.document, 1.5);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(typed.count(), 1);
    QCOMPARE(text.heights(), QList<qreal>({150, 150, 150}));
    QMetaObject::invokeMethod(text.item.get(), "undo");
    QCOMPARE(text.heights(), QList<qreal>({0, 0, 0}));
}

void TestPropertyEditor::lineHeightOfNothing()
{
    PropertyEditor editor;
    editor.setLineHeight(nullptr, 1.5);
    // An emptied text is one empty paragraph, which keeps its height.
    Text text;
    text.item->setProperty("text", QString());
    editor.setLineHeight(text.document, 1.5);
    QCOMPARE(text.heights(), QList<qreal>({0}));
    // Two empty paragraphs are a text.
    text.item->setProperty("text", "\n");
    editor.setLineHeight(text.document, 1.5);
    QCOMPARE(text.heights(), QList<qreal>({150, 150}));
    // NaN changes nothing.
    editor.setLineHeight(text.document, qQNaN());
    QCOMPARE(text.heights(), QList<qreal>({150, 150}));
}

QTEST_MAIN(TestPropertyEditor)
#include "tst_propertyeditor.moc"
