// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "benchmarks/support/SideBySide.h"

#include <QGuiApplication>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <memory>

namespace {

const char *const areaQml = R"(
import QtQuick 2.12
import ombrel.Controls 1.0
HoverArea { width: 50; height: 50 }
)";

const char *const handlerQml = R"(
import QtQuick 2.12
Item {
    width: 50; height: 50
    HoverHandler {}
}
)";

/// Counts how often an object's `hovered` changes.
class Changes : public QObject
{
    Q_OBJECT

public:
    explicit Changes(QObject *item)
    {
        const QMetaObject *const type = item->metaObject();
        const QMetaProperty hovered = type->property(type->indexOfProperty("hovered"));
        const QMetaMethod note = metaObject()->method(metaObject()->indexOfSlot("note()"));
        connect(item, hovered.notifySignal(), this, note);
    }
    int count = 0;

public Q_SLOTS:
    void note() { ++count; }
};

/// One item in a window of its own, which gets the pointer's moves.
class Side
{
public:
    Side(QQmlEngine &engine, const char *qml)
        : m_component(&engine)
    {
        m_component.setData(qml, QUrl());
        m_window.resize(200, 200);
        m_item = create();
        m_item->setParentItem(m_window.contentItem());
        m_window.show();
    }

    std::unique_ptr<QQuickItem> create()
    {
        std::unique_ptr<QObject> object(m_component.create());
        auto *const item = qobject_cast<QQuickItem *>(object.get());
        if (!item) {
            qFatal("%s", qPrintable(m_component.errorString()));
        }
        object.release();
        return std::unique_ptr<QQuickItem>(item);
    }

    void enterAndLeave()
    {
        move(QPointF(25, 25));
        move(QPointF(150, 150));
    }

    /// Each entering and each leaving is a change, also in a long row of them.
    void check()
    {
        QObject *const handler = m_item->findChild<QObject *>();
        Changes changes(handler ? handler : m_item.get());
        for (int i = 0; i < 100; ++i) {
            enterAndLeave();
        }
        if (changes.count != 200) {
            qFatal("%s: %d changes instead of 200", m_item->metaObject()->className(),
                   changes.count);
        }
    }

private:
    void move(const QPointF &position)
    {
        QMouseEvent event(QEvent::MouseMove, position, position, Qt::NoButton, Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&m_window, &event);
    }

    QQmlComponent m_component;
    QQuickWindow m_window;
    // Goes before its window.
    std::unique_ptr<QQuickItem> m_item;
};

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(OMBREL_QML_IMPORT));
    Side area(engine, areaQml);
    Side handler(engine, handlerQml);
    area.check();
    handler.check();
    benchmark::sideBySide(
        "hover area: create", 0.6, [&] { area.create(); }, [&] { handler.create(); });
    benchmark::sideBySide(
        "hover area: enter + leave", 0.6, [&] { area.enterAndLeave(); },
        [&] { handler.enterAndLeave(); });
    area.check();
    handler.check();
    return 0;
}

#include "bm_input.moc"
