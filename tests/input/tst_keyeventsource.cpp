// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "controls/input/KeyEventSource.h"
#include "tests/support/Leftovers.h"

#include <QKeyEvent>
#include <QPointer>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace om::controls;

namespace {

/// Notes the keys it gets; takes them or not.
class Field : public QQuickItem
{
public:
    explicit Field(QQuickItem *parent = nullptr)
        : QQuickItem(parent)
    {
    }

    QStringList keys;
    bool takes = true;
    std::function<void()> whenPressed;
    std::function<void()> whenFocused;

protected:
    void keyPressEvent(QKeyEvent *event) override { note("press", event); }
    void keyReleaseEvent(QKeyEvent *event) override { note("release", event); }
    void focusInEvent(QFocusEvent *) override
    {
        if (whenFocused) {
            whenFocused();
        }
    }

private:
    void note(const char *what, QKeyEvent *event)
    {
        keys.append(QStringLiteral("%1 %2 '%3' %4 %5 %6")
                        .arg(QLatin1String(what))
                        .arg(event->key())
                        .arg(event->text())
                        .arg(static_cast<int>(event->modifiers()))
                        .arg(event->isAutoRepeat())
                        .arg(event->count()));
        event->setAccepted(takes);
        if (whenPressed && event->type() == QEvent::KeyPress) {
            // By copy: it may destroy the field.
            const auto call = whenPressed;
            call();
        }
    }
};

/// A window whose focus object can be anything.
class Window : public QQuickWindow
{
public:
    Window() { resize(120, 80); }
    QObject *focusObject() const override
    {
        return forged ? forged.data() : QQuickWindow::focusObject();
    }
    bool activate()
    {
        show();
        requestActivate();
        return QTest::qWaitForWindowActive(this);
    }
    QPointer<QObject> forged;
};

struct Scene
{
    Scene()
        : window(new Window)
        , source(new KeyEventSource(window->contentItem()))
        , field(new Field(window->contentItem()))
    {
    }
    ~Scene() { delete window; }
    bool show()
    {
        if (!window->activate()) {
            return false;
        }
        field->forceActiveFocus();
        return field->hasActiveFocus();
    }
    QPointer<Window> window;
    QPointer<KeyEventSource> source;
    QPointer<Field> field;
};

const QString pressA = QStringLiteral("press 65 'a' 0 0 1");
const QString releaseA = QStringLiteral("release 65 '' 0 0 1");

} // namespace

class TestKeyEventSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(support::leftovers(), QString()); }
    void pressAndReleaseReachTheFocusItem();
    void ignoredPressGetsNoRelease();
    void aTargetSilencesTheSource();
    void aDestroyedTargetNoLongerSilences();
    void targetSignals();
    void withoutAWindow();
    void focusObjectThatIsNoItem();
    void focusIsForced();
    void destroyedByTheFocus();
    void destroyedByThePress_data();
    void destroyedByThePress();
    void targetSetByThePress();
    void readWhileItIsDestroyed();
};

void TestKeyEventSource::pressAndReleaseReachTheFocusItem()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCOMPARE(scene.field->keys, QStringList({pressA, releaseA}));
}

void TestKeyEventSource::ignoredPressGetsNoRelease()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.field->takes = false;
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCOMPARE(scene.field->keys, QStringList(pressA));
}

void TestKeyEventSource::aTargetSilencesTheSource()
{
    Scene scene;
    QVERIFY(scene.show());
    Field other(scene.window->contentItem());
    // The target gets no keys either, and the focus item gets none even as the target.
    for (Field *target : {&other, scene.field.data()}) {
        scene.source->setTarget(target);
        scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
        QCOMPARE(scene.field->keys, QStringList());
        QCOMPARE(other.keys, QStringList());
    }
    scene.source->setTarget(nullptr);
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCOMPARE(scene.field->keys.size(), 2);
}

void TestKeyEventSource::aDestroyedTargetNoLongerSilences()
{
    Scene scene;
    QVERIFY(scene.show());
    {
        QQuickItem target;
        scene.source->setTarget(&target);
        scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
        QCOMPARE(scene.field->keys, QStringList());
    }
    QVERIFY(!scene.source->target());
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCOMPARE(scene.field->keys, QStringList({pressA, releaseA}));
}

void TestKeyEventSource::targetSignals()
{
    KeyEventSource source;
    QVERIFY(!source.target());
    const QSignalSpy changes(&source, &KeyEventSource::targetChanged);
    source.setTarget(nullptr);
    QCOMPARE(changes.count(), 0);
    {
        QQuickItem item;
        source.setTarget(&item);
        QCOMPARE(source.target(), &item);
        source.setTarget(&item);
        QCOMPARE(changes.count(), 1);
    }
    // The destroyed target is null already: no change.
    source.setTarget(nullptr);
    QCOMPARE(changes.count(), 1);
}

void TestKeyEventSource::withoutAWindow()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.source->setParentItem(nullptr);
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCOMPARE(scene.field->keys, QStringList());
}

void TestKeyEventSource::focusObjectThatIsNoItem()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.window->forged = this;
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCOMPARE(scene.field->keys, QStringList());
}

void TestKeyEventSource::focusIsForced()
{
    Scene scene;
    QVERIFY(scene.show());
    Field other(scene.window->contentItem());
    scene.window->forged = &other;
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QVERIFY(other.hasActiveFocus());
    QCOMPARE(other.keys, QStringList({pressA, releaseA}));
    QCOMPARE(scene.field->keys, QStringList());
}

void TestKeyEventSource::destroyedByTheFocus()
{
    Scene scene;
    QVERIFY(scene.show());
    QPointer<Field> other(new Field(scene.window->contentItem()));
    scene.window->forged = other;
    // Deleted later: Qt uses the item after its signal while it moves the focus.
    connect(other, &QQuickItem::activeFocusChanged, other, &QObject::deleteLater);
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!other);
    QCOMPARE(scene.field->keys, QStringList());
}

void TestKeyEventSource::destroyedByThePress_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("the source") << "source" << QStringList({pressA, releaseA});
    QTest::newRow("the focus item") << "field" << QStringList();
    QTest::newRow("the window, with all in it") << "window" << QStringList();
}

void TestKeyEventSource::destroyedByThePress()
{
    QFETCH(QString, what);
    QFETCH(QStringList, keys);
    Scene scene;
    QVERIFY(scene.show());
    scene.field->whenPressed = [&scene, what] {
        if (what == QLatin1String("source")) {
            delete scene.source;
        } else if (what == QLatin1String("field")) {
            delete scene.field;
        } else {
            delete scene.window;
        }
    };
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCOMPARE(scene.source.isNull(), what != QLatin1String("field"));
    QCOMPARE(scene.field.isNull(), what != QLatin1String("source"));
    if (scene.field) {
        QCOMPARE(scene.field->keys, keys);
    }
}

void TestKeyEventSource::targetSetByThePress()
{
    // The stroke that has begun ends; the next one is silenced. Then the target dies in a press.
    Scene scene;
    QVERIFY(scene.show());
    auto target = std::make_unique<QQuickItem>();
    scene.field->whenPressed = [&] { scene.source->setTarget(target.get()); };
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCOMPARE(scene.field->keys, QStringList({pressA, releaseA}));

    scene.field->keys.clear();
    scene.source->setTarget(nullptr);
    scene.field->whenPressed = [&] {
        scene.source->setTarget(target.get());
        target.reset();
    };
    scene.source->triggerKeyEvent(Qt::Key_A, QStringLiteral("a"));
    QCOMPARE(scene.field->keys, QStringList({pressA, releaseA}));
    QVERIFY(!scene.source->target());
}

/// The destructor leaves the item tree first: handlers of that may read the source's properties.
void TestKeyEventSource::readWhileItIsDestroyed()
{
    QQuickWindow window;
    QQuickItem target;
    auto source = std::make_unique<KeyEventSource>(window.contentItem());
    source->setTarget(&target);
    QList<QQuickItem *> seen;
    const QObject *const asked = source.get();
    connect(source.get(), &QQuickItem::windowChanged, this,
            [&seen, asked] { seen.append(asked->property("target").value<QQuickItem *>()); });
    source.reset();
    QCOMPARE(seen, QList<QQuickItem *>{&target});
}

QTEST_MAIN(TestKeyEventSource)
#include "tst_keyeventsource.moc"
