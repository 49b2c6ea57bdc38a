// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>

#include <functional>
#include <memory>

/// Two windows, and in the first of them a scene with an object of the type that is looked at: the
/// subject.
///
/// The scene of a type is data/handlers/<Type>.qml where there is one. The others are generated: an
/// object of the type, in a DropZone when it is a drop handler, inside data/handlers/Stock.qml.
class Stage
{
public:
    Stage();
    ~Stage();

    /// Makes the scene of \a type; false, with a message, when that is not possible.
    bool load(const QString &type);
    /// Destroys the scene and makes it anew.
    void remake();
    /// Destroys the scene, closes what is left of a drag, and shows both windows again.
    void clear();

    QObject *subject() const { return m_subject; }
    QQuickItem *subjectItem() const { return qobject_cast<QQuickItem *>(m_subject); }
    QObject *root() const { return m_root; }
    /// A new one, not shown before clear(), when the last has been destroyed; so with the engine.
    QQuickWindow *window();
    QQuickWindow *second() const { return m_second.get(); }
    QQmlEngine *engine();
    /// How many engines there have been.
    int engineCount() const { return m_engineCount; }
    /// That of the scene's document.
    QQmlContext *context() const { return m_context; }
    /// What \a object is in: its parent item, else its owner; none for what a window's own item
    /// holds, as that goes only with its window.
    QObject *parentOf(const QObject *object) const;

    /// Destroys \a object at once.
    void destroy(QObject *object);
    /// Whether what \a object owns, or something in that, is just being destroyed by destroy().
    bool isLosing(const QObject *object) const;

    /// What the property \a property of the stock holds, one object or a list: components, items
    /// and documents to write into properties and to pass to functions.
    QObjectList stock(const char *property) const;
    /// All documents of the scene.
    QObjectList documents() const;

    /// The objects that may be senders, by a name that is the same whenever the scene is made:
    /// objects of the library and items. Among objects of one class without a name only the first
    /// two are listed.
    QMap<QString, QObject *> senders();

    /// Called whenever new objects may have been made.
    std::function<void()> whenChanged;

    /// Whether the first window is just being synchronised with its scene graph, on this thread.
    bool isSynchronizing() const { return m_synchronizing; }

    /// Lets everything happen that is under way: events, deferred deletions, animations, drags, a
    /// frame.
    void settle();

private:
    std::shared_ptr<QQmlComponent> componentOf(const QString &type);
    void make();
    void showWindows();
    void driveDrag();
    bool isOfWindow(const QObject *object) const;

    // What an action may destroy.
    QPointer<QQmlEngine> m_engine;
    QPointer<QQuickWindow> m_window;
    QPointer<QQmlContext> m_context;
    std::unique_ptr<QQuickWindow> m_second;
    QString m_type;
    std::unique_ptr<QObject> m_held;
    QPointer<QObject> m_root;
    QPointer<QObject> m_subject;
    QPointer<QObject> m_loser;
    QMap<QString, std::shared_ptr<QQmlComponent>> m_components;
    QTimer m_dragDriver;
    int m_dragStep = 0;
    int m_engineCount = 0;
    bool m_synchronizing = false;
};

/// Whether a class of the library, or one that QML derived from it, is among the classes of \a
/// object.
bool isOfLibrary(const QObject *object);
/// The class of the library that \a object is of, without its namespace; else the class's name.
QString plainClassName(const QObject *object);
