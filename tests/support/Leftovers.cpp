// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Leftovers.h"

#include "tests/support/ObjectCensus.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QStringList>
#include <QWindow>

#include <memory>

namespace support {

/// "an object QQuickItem (3 times)": \a what, a name, and how often it comes.
static QStringList counted(const QString &what, const QStringList &sortedNames)
{
    QStringList left;
    for (int first = 0, next = 0; first < sortedNames.size(); first = next) {
        while (next < sortedNames.size() && sortedNames.at(next) == sortedNames.at(first)) {
            ++next;
        }
        const int count = next - first;
        left.append(
            count == 1
                ? QStringLiteral("%1 %2").arg(what, sortedNames.at(first))
                : QStringLiteral("%1 %2 (%3 times)").arg(what, sortedNames.at(first)).arg(count));
    }
    return left;
}

int openDialogs()
{
    // Asked by name: a test of the inner library must not load the plugin beside it.
    if (QMetaType::type("om::controls::DialogItem*") == QMetaType::UnknownType) {
        return 0;
    }
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import ombrel.Controls 1.0; DialogItem {}", QUrl());
    const std::unique_ptr<QObject> probe(component.create());
    if (!probe) {
        qFatal("%s", qPrintable(component.errorString()));
    }
    // An opened dialog stands above those that are open already.
    QMetaObject::invokeMethod(probe.get(), "show");
    const int count = int(probe->property("z").toReal()) - 65535;
    QMetaObject::invokeMethod(probe.get(), "reject");
    return count;
}

static QStringList visibleThings()
{
    QStringList left;
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        return left;
    }
    const auto windows = QGuiApplication::allWindows();
    for (const QWindow *window : windows) {
        if (window->isVisible()) {
            left.append(
                QStringLiteral("a visible window '%1' (%2)")
                    .arg(window->title(), QString::fromLatin1(window->metaObject()->className())));
        }
    }
    if (QGuiApplication::overrideCursor()) {
        left.append(QStringLiteral("an override cursor"));
    }
    return left;
}

QString leftovers()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList left;
    left += visibleThings();
    left += counted(QStringLiteral("an object"), livingObjects());
    left += counted(QStringLiteral("a texture"), livingTextures());
    left += counted(QStringLiteral("a scene-graph node"), livingNodes());
    left += counted(QStringLiteral("an event filter"), eventFilters());
    left += counted(QStringLiteral("a timer of"), activeTimers());
    left += counted(QStringLiteral("a running animation"), runningAnimations());
    if (const int count = openDialogs()) {
        left.append(QStringLiteral("%1 open dialogs").arg(count));
    }
    return left.join(QStringLiteral(", "));
}

} // namespace support
