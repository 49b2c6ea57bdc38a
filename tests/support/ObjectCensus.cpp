// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/ObjectCensus.h"

#include <QAbstractAnimation>
#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QHash>
#include <QSGNode>
#include <QTest>
#include <QThread>
#include <QtCore/private/qhooks_p.h>
#include <QtCore/private/qobject_p.h>

#include <cxxabi.h>
#include <mutex>
#include <typeinfo>

namespace support {

namespace {

/// The objects that live, each with its number in the order of their making. Objects also come and
/// go on render threads. An object cannot vanish while the lock is held: it leaves in its
/// destructor.
class Census
{
public:
    void add(QObject *object)
    {
        const std::lock_guard<std::mutex> lock(m_lock);
        noticeNewTest();
        m_numbers.insert(object, m_next++);
    }
    void remove(QObject *object)
    {
        const std::lock_guard<std::mutex> lock(m_lock);
        m_numbers.remove(object);
    }
    void noteNode(QSGNode *node, bool lives)
    {
        const std::lock_guard<std::mutex> lock(m_lock);
        if (lives) {
            noticeNewTest();
            m_nodes.insert(node, m_next++);
        } else {
            m_nodes.remove(node);
        }
    }

    /// What \a describe answers of each object, without the empty answers.
    template<typename Describe>
    QStringList list(Describe describe)
    {
        const std::lock_guard<std::mutex> lock(m_lock);
        noticeNewTest();
        QStringList found;
        for (auto it = m_numbers.cbegin(); it != m_numbers.cend(); ++it) {
            found += describe(it.key());
        }
        found.removeAll(QString());
        found.sort();
        return found;
    }

    QStringList listNodes()
    {
        const std::lock_guard<std::mutex> lock(m_lock);
        noticeNewTest();
        QStringList found;
        for (auto it = m_nodes.cbegin(); it != m_nodes.cend(); ++it) {
            if (it.value() >= m_firstOfTest) {
                const QSGNode &node = *it.key();
                found.append(className(typeid(node)));
            }
        }
        found.sort();
        return found;
    }

    bool isOfThisTest(const QObject *object) const
    {
        return m_numbers.value(const_cast<QObject *>(object), 0) >= m_firstOfTest;
    }

private:
    static QString className(const std::type_info &type)
    {
        int status = 0;
        char *const name = abi::__cxa_demangle(type.name(), nullptr, nullptr, &status);
        const QString text = QString::fromLatin1(status == 0 ? name : type.name());
        std::free(name);
        return text;
    }

    /// Qt Test says nothing when a test begins, but what it calls the test changes.
    void noticeNewTest()
    {
        if (QThread::currentThreadId() != m_mainThread) {
            return;
        }
        const char *const function = QTest::currentTestFunction();
        const char *const row = QTest::currentDataTag();
        if (function != m_function || row != m_row) {
            m_function = function;
            m_row = row;
            m_firstOfTest = m_next;
        }
    }

    std::mutex m_lock;
    QHash<QObject *, quint64> m_numbers;
    QHash<QSGNode *, quint64> m_nodes;
    quint64 m_next = 1;
    quint64 m_firstOfTest = 1;
    const Qt::HANDLE m_mainThread = QThread::currentThreadId();
    const char *m_function = nullptr;
    const char *m_row = nullptr;
};

/// Lives as long as the process: objects with static lifetime leave after main().
Census &census()
{
    static Census *const instance = new Census;
    return *instance;
}

const bool hooked = [] {
    census();
    watchNodes();
    const QHooks::AddQObjectCallback add = [](QObject *object) { census().add(object); };
    const QHooks::RemoveQObjectCallback remove = [](QObject *object) { census().remove(object); };
    qtHookData[QHooks::AddQObject] = reinterpret_cast<quintptr>(add);
    qtHookData[QHooks::RemoveQObject] = reinterpret_cast<quintptr>(remove);
    return true;
}();

bool isA(const QObject *object, const char *name)
{
    return object->inherits(name);
}

/// Of the library or the data core: a class of theirs or one that QML derived from it. The plugins
/// themselves stay loaded.
bool isOurs(const QObject *object)
{
    for (const QMetaObject *meta = object->metaObject(); meta; meta = meta->superClass()) {
        if (qstrncmp(meta->className(), "om::", 4) == 0) {
            return !isA(object, "QQmlExtensionPlugin");
        }
    }
    return false;
}

QString className(const QObject *object)
{
    return QString::fromLatin1(object->metaObject()->className());
}

} // namespace

QStringList livingObjects()
{
    return census().list([](const QObject *object) {
        // The platform keeps the window that shows a drag's picture, and what it reads foreign data
        // with, for the next drag.
        if (!census().isOfThisTest(object) || isA(object, "QShapedPixmapWindow")
            || isA(object, "QXcbMime")) {
            return QString();
        }
        for (const char *counted : {"QQuickItem", "QWindow", "QJSEngine", "QQmlContext",
                                    "QQmlComponent", "QDrag", "QMimeData"}) {
            if (isA(object, counted)) {
                return className(object);
            }
        }
        return isOurs(object) ? className(object) : QString();
    });
}

QStringList livingTextures()
{
    return census().list([](const QObject *object) {
        return census().isOfThisTest(object) && isA(object, "QSGTexture") ? className(object)
                                                                          : QString();
    });
}

QStringList livingNodes()
{
    return census().listNodes();
}

void noteNode(QSGNode *node, bool lives)
{
    census().noteNode(node, lives);
}

/// Whether what \a object does is for the test that runs now to end.
static bool isOfInterest(const QObject *object)
{
    return object->thread() == QThread::currentThread()
        && (isOurs(object) || census().isOfThisTest(object));
}

QStringList activeTimers()
{
    return census().list([](QObject *object) {
        // Qt's own objects have theirs for caches, animations and what is made bit by bit.
        const bool mayHaveOne = isOurs(object) || isA(object, "QQuickItem") || isA(object, "QTimer")
            || isA(object, "QQmlTimer");
        const auto *const dispatcher = QAbstractEventDispatcher::instance();
        QStringList found;
        if (dispatcher && mayHaveOne && isOfInterest(object)) {
            const int count = dispatcher->registeredTimers(object).size();
            for (int i = 0; i < count; ++i) {
                found.append(className(object));
            }
        }
        return found;
    });
}

QStringList runningAnimations()
{
    return census().list([](const QObject *object) {
        const auto *const animation = qobject_cast<const QAbstractAnimation *>(object);
        const bool runs = animation
            ? animation->state() == QAbstractAnimation::Running
            : isA(object, "QQuickAbstractAnimation") && object->property("running").toBool();
        return runs && isOfInterest(object) ? className(object) : QString();
    });
}

QStringList eventFilters()
{
    return census().list([](QObject *watched) {
        QStringList found;
        const QObjectPrivate *const d = QObjectPrivate::get(watched);
        if (watched->thread() != QThread::currentThread() || !d->extraData) {
            return found;
        }
        for (const QPointer<QObject> &filter : d->extraData->eventFilters) {
            if (filter && (isOurs(filter) || census().isOfThisTest(filter))) {
                found += className(filter) + QStringLiteral(" on ") + className(watched);
            }
        }
        return found;
    });
}

} // namespace support
