// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/plugin/handlers/Stage.h"

#include "tests/plugin/handlers/AskedDocument.h"
#include "tests/plugin/handlers/EventItem.h"
#include "tests/plugin/handlers/MakerItem.h"
#include "tests/plugin/handlers/ToldItem.h"
#include "tests/support/DragEvents.h"

#include <QAbstractAnimation>
#include <QCoreApplication>
#include <QDrag>
#include <QFile>
#include <QQmlListReference>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

namespace {

const QByteArray imports = "import QtQuick 2.12\nimport ombrel.Controls 1.0\n"
                           "import ombrel.Controls.Private 1.0\nimport ombrel.data.Core 1.0\n"
                           "import handlers 1.0\n";

QString dataFile(const QString &name)
{
    return qEnvironmentVariable("OMBREL_SOURCE_DIR")
        + QStringLiteral("/tests/plugin/data/handlers/%1.qml").arg(name);
}

/// Everything below \a object, by ownership and by sight.
void collect(QObject *object, QList<QObject *> *found)
{
    if (found->contains(object)) {
        return;
    }
    found->append(object);
    if (const auto *item = qobject_cast<QQuickItem *>(object)) {
        const auto items = item->childItems();
        for (QQuickItem *child : items) {
            collect(child, found);
        }
    }
    const auto children = object->children();
    for (QObject *child : children) {
        collect(child, found);
    }
}

QQuickWindow *makeWindow(int x)
{
    auto *const window = new QQuickWindow;
    window->setFlag(Qt::FramelessWindowHint);
    window->setGeometry(x, 100, 200, 200);
    return window;
}

} // namespace

bool isOfLibrary(const QObject *object)
{
    for (const QMetaObject *meta = object->metaObject(); meta; meta = meta->superClass()) {
        if (qstrncmp(meta->className(), "om::controls::", 14) == 0) {
            return true;
        }
    }
    return false;
}

QString plainClassName(const QObject *object)
{
    for (const QMetaObject *meta = object->metaObject(); meta; meta = meta->superClass()) {
        if (qstrncmp(meta->className(), "om::controls::", 14) == 0) {
            return QString::fromLatin1(meta->className() + 14);
        }
    }
    QString name = QString::fromLatin1(object->metaObject()->className());
    return name.remove(QRegularExpression(QStringLiteral("_QML(TYPE)?_\\d+$")));
}

Stage::Stage()
    : m_second(makeWindow(400))
{
    qmlRegisterType<AskedDocument>("handlers", 1, 0, "AskedDocument");
    qmlRegisterType<EventItem>("handlers", 1, 0, "EventItem");
    qmlRegisterType<HastyMakerItem>("handlers", 1, 0, "HastyMakerItem");
    qmlRegisterType<MakerItem>("handlers", 1, 0, "MakerItem");
    qmlRegisterType<ToldItem>("handlers", 1, 0, "ToldItem");
    qmlRegisterType<FilterItem>("handlers", 1, 0, "FilterItem");
    m_dragDriver.setInterval(1);
    QObject::connect(&m_dragDriver, &QTimer::timeout, [this] { driveDrag(); });
    showWindows();
}

Stage::~Stage()
{
    m_held.reset();
    delete m_context;
    m_components.clear();
    delete m_engine;
    delete m_window;
}

QQuickWindow *Stage::window()
{
    if (!m_window) {
        m_window = makeWindow(100);
        m_synchronizing = false;
        // Connected first, told first; under the threaded loop both arrive after the fact, one
        // after the other.
        QObject::connect(m_window, &QQuickWindow::beforeSynchronizing, &m_dragDriver,
                         [this] { m_synchronizing = true; });
        QObject::connect(m_window, &QQuickWindow::afterSynchronizing, &m_dragDriver,
                         [this] { m_synchronizing = false; });
    }
    return m_window;
}

QQmlEngine *Stage::engine()
{
    if (!m_engine) {
        // Without their engine they make nothing any more.
        m_components.clear();
        m_engine = new QQmlEngine;
        ++m_engineCount;
    }
    return m_engine;
}

bool Stage::isOfWindow(const QObject *object) const
{
    return object == m_second->contentItem() || (m_window && object == m_window->contentItem());
}

QObject *Stage::parentOf(const QObject *object) const
{
    const auto *const item = qobject_cast<const QQuickItem *>(object);
    QObject *const parent = item && item->parentItem() ? item->parentItem() : object->parent();
    return isOfWindow(parent) ? nullptr : parent;
}

void Stage::destroy(QObject *object)
{
    m_loser = object ? object->parent() : nullptr;
    delete object;
    m_loser.clear();
}

bool Stage::isLosing(const QObject *object) const
{
    const QObject *loser = m_loser;
    while (loser && loser != object) {
        loser = loser->parent();
    }
    return loser;
}

void Stage::showWindows()
{
    for (QQuickWindow *shown : {m_second.get(), window()}) {
        if (!shown->isVisible()) {
            shown->show();
            if (!QTest::qWaitForWindowExposed(shown)) {
                qFatal("The window is not shown");
            }
        }
    }
    if (!m_window->isActive()) {
        m_window->requestActivate();
        if (!QTest::qWaitForWindowActive(m_window)) {
            qFatal("The window is not active");
        }
    }
}

std::shared_ptr<QQmlComponent> Stage::componentOf(const QString &type)
{
    // First, as a new engine clears the list.
    QQmlEngine *const maker = engine();
    auto &component = m_components[type];
    if (!component) {
        component = std::make_shared<QQmlComponent>(maker);
        const QUrl place = QUrl::fromLocalFile(dataFile(QStringLiteral("generated")));
        if (QFile::exists(dataFile(type))) {
            component->loadUrl(QUrl::fromLocalFile(dataFile(type)));
        } else {
            component->setData(imports + type.toLatin1() + " {}", place);
            const std::unique_ptr<QObject> probe(component->create());
            QByteArray object = type.toLatin1() + " { objectName: \"subject\" }";
            if (qobject_cast<QQuickItem *>(probe.get())) {
                object.insert(object.size() - 1, "; x: 20; y: 20; width: 80; height: 80 ");
            } else if (probe && probe->inherits("om::controls::DropHandler")) {
                object = "DropZone { x: 20; y: 20; width: 80; height: 80; " + object + " }";
            }
            component = std::make_shared<QQmlComponent>(maker);
            component->setData(imports + "Stock { " + object + " }", place);
        }
    }
    return component;
}

void Stage::make()
{
    const std::shared_ptr<QQmlComponent> component = componentOf(m_type);
    m_context = new QQmlContext(engine());
    m_root = component->beginCreate(m_context);
    m_held.reset(m_root);
    if (auto *item = qobject_cast<QQuickItem *>(m_root.data())) {
        item->setParentItem(window()->contentItem());
        component->completeCreate();
    }
    m_subject = m_root ? m_root->findChild<QObject *>(QStringLiteral("subject")) : nullptr;
    if (!m_root) {
        m_held.release();
    }
}

bool Stage::load(const QString &type)
{
    m_type = type;
    m_dragStep = 0;
    m_dragDriver.start();
    make();
    if (!m_subject) {
        qWarning("%s", qPrintable(componentOf(type)->errorString()));
        return false;
    }
    settle();
    return true;
}

void Stage::remake()
{
    if (m_root) {
        m_held.reset();
    } else {
        m_held.release();
    }
    delete m_context;
    make();
}

void Stage::clear()
{
    m_dragDriver.stop();
    QDrag::cancel();
    whenChanged = {};
    if (m_root) {
        m_held.reset();
    } else {
        m_held.release();
    }
    delete m_context;
    QTest::mouseRelease(window(), Qt::LeftButton, {}, {199, 199});
    // What an action has moved here, and a drag visual that wants to stay.
    for (QQuickWindow *shown : {window(), m_second.get()}) {
        QList<QPointer<QQuickItem>> items;
        const auto found = shown->contentItem()->childItems()
            + shown->contentItem()->findChildren<QQuickItem *>(QString(),
                                                               Qt::FindDirectChildrenOnly);
        for (QQuickItem *item : found) {
            items.append(item);
        }
        for (const QPointer<QQuickItem> &item : qAsConst(items)) {
            delete item;
        }
    }
    for (int i = 0; i < 2; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    showWindows();
}

QObjectList Stage::stock(const char *property) const
{
    QObjectList found;
    if (m_root) {
        if (auto *const one = m_root->property(property).value<QObject *>()) {
            found.append(one);
        }
        const QQmlListReference list(m_root, property, qmlEngine(m_root));
        for (int i = 0; i < list.count(); ++i) {
            found.append(list.at(i));
        }
    }
    return found;
}

QObjectList Stage::documents() const
{
    QList<om::data::Document *> found;
    if (m_root) {
        found = m_root->findChildren<om::data::Document *>();
    }
    return {found.cbegin(), found.cend()};
}

QMap<QString, QObject *> Stage::senders()
{
    QList<QObject *> objects;
    if (m_root) {
        collect(m_root, &objects);
    }
    collect(window()->contentItem(), &objects);
    collect(m_second->contentItem(), &objects);
    QMap<QString, QObject *> named;
    for (QObject *object : qAsConst(objects)) {
        // The insides of the library's own QML files are nobody else's to touch.
        const QQmlContext *const context = qmlContext(object);
        const bool isInside = context
            && context->baseUrl().toString().startsWith(QLatin1String("qrc:/controls/private/"));
        if (isOfWindow(object) || isInside
            || (!isOfLibrary(object) && !qobject_cast<QQuickItem *>(object))) {
            continue;
        }
        const QString name = plainClassName(object);
        if (!object->objectName().isEmpty()) {
            named.insert(object->objectName(), object);
        } else if (!named.contains(name)) {
            named.insert(name, object);
        } else if (!named.contains(name + QStringLiteral(" 2")) && isOfLibrary(object)) {
            named.insert(name + QStringLiteral(" 2"), object);
        }
    }
    return named;
}

void Stage::settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        if (whenChanged) {
            whenChanged();
        }
        if (m_root) {
            const auto animations = window()->contentItem()->findChildren<QAbstractAnimation *>()
                + m_root->findChildren<QAbstractAnimation *>();
            for (const QPointer<QAbstractAnimation> animation : animations) {
                if (animation && animation->state() == QAbstractAnimation::Running) {
                    animation->setCurrentTime(animation->totalDuration());
                }
            }
        }
    }
    if (window()->isVisible()) {
        m_window->grabWindow();
        QCoreApplication::processEvents();
    }
}

/// Leads the drag that runs, if one does, over the window and out of it, and ends it: called from
/// within the platform's loop.
void Stage::driveDrag()
{
    // A Draggable takes its drag along into another window.
    const QObjectList places = {m_root, window()->contentItem(), m_second->contentItem()};
    const bool running = std::any_of(places.cbegin(), places.cend(), [](const QObject *place) {
        return place && place->findChild<QDrag *>();
    });
    if (!running) {
        if (m_dragStep > 0) {
            m_dragStep = 0;
            QDrag::cancel();
        }
        return;
    }
    if (whenChanged) {
        whenChanged();
    }
    support::DragEvents events(window());
    switch (++m_dragStep) {
    case 1:
        events.enter({150, 150});
        break;
    case 2:
        events.move({160, 160});
        break;
    case 3:
        events.leave();
        break;
    case 4:
        events.enter({150, 150});
        break;
    default:
        QDrag::cancel();
        break;
    }
}
