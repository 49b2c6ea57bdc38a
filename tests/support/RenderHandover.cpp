// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// Linked into every test of a thread sanitizer build. Qt is not instrumented, and the lock under
// which its threaded render loop hands the items over is a single atomic operation inside Qt: the
// sanitizer would take each value that a setter writes and updatePaintNode() reads for a race. This
// tells it what is so: the GUI thread waits in QWaitCondition::wait() while the render thread
// synchronises, and so everything it did before has happened before; and what the render thread did
// before it wakes the GUI thread has happened before that goes on. Likewise a slot is connected
// before a signal calls it, which Qt's own lock of the connections sees to.

#include <QCoreApplication>
#include <QEvent>
#include <QQuickWindow>
#include <QThread>
#include <QWaitCondition>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

// Stands for what the GUI thread had done when it began to wait.
char guiThreadWaits;
// Stands for what a thread had done when it connected a slot.
char slotIsConnected;

/// Qt's own function of the mangled \a name, which the one of this file comes before.
template<typename Function>
Function ofQt(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool isGuiThread()
{
    const QCoreApplication *const application = QCoreApplication::instance();
    return application && application->thread() == QThread::currentThread();
}

/// Has the render thread of each window take the clock over before anything is synchronised.
class Handover : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::PlatformSurface) {
            if (auto *const window = qobject_cast<QQuickWindow *>(watched)) {
                // The surface comes before the first frame, and now and then anew.
                disconnect(window, &QQuickWindow::beforeSynchronizing, this, nullptr);
                connect(
                    window, &QQuickWindow::beforeSynchronizing, this,
                    [] { __tsan_acquire(&guiThreadWaits); }, Qt::DirectConnection);
            }
        }
        return false;
    }
};

void watchWindows()
{
    QCoreApplication *const application = QCoreApplication::instance();
    application->installEventFilter(new Handover(application));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchWindows)

// These come before Qt's own in the order of symbols.

bool QWaitCondition::wait(QMutex *mutex, QDeadlineTimer deadline)
{
    if (isGuiThread()) {
        __tsan_release(&guiThreadWaits);
    }
    using Wait = bool (*)(QWaitCondition *, QMutex *, QDeadlineTimer);
    static const auto next = ofQt<Wait>("_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    const bool woken = next(this, mutex, deadline);
    __tsan_acquire(this);
    return woken;
}

void QWaitCondition::wakeOne()
{
    __tsan_release(this);
    using Wake = void (*)(QWaitCondition *);
    static const auto next = ofQt<Wake>("_ZN14QWaitCondition7wakeOneEv");
    next(this);
}

QMetaObject::Connection QObject::connectImpl(const QObject *sender, void **signal,
                                             const QObject *receiver, void **slotPointer,
                                             QtPrivate::QSlotObjectBase *slot,
                                             Qt::ConnectionType type, const int *types,
                                             const QMetaObject *senderMetaObject)
{
    __tsan_release(&slotIsConnected);
    static const auto next = ofQt<decltype(&QObject::connectImpl)>(
        "_ZN7QObject11connectImplEPKS_PPvS1_S3_PN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionType"
        "EPKiPK11QMetaObject");
    return next(sender, signal, receiver, slotPointer, slot, type, types, senderMetaObject);
}

void QMetaObject::activate(QObject *sender, const QMetaObject *type, int signal, void **arguments)
{
    if (!isGuiThread()) {
        __tsan_acquire(&slotIsConnected);
    }
    using Activate = void (*)(QObject *, const QMetaObject *, int, void **);
    static const auto next = ofQt<Activate>("_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    next(sender, type, signal, arguments);
}
