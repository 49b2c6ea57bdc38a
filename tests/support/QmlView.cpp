// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/QmlView.h"

#include <QDir>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlExpression>
#include <QTest>

namespace support {

static QObject *findBelow(QObject *object, const QString &name)
{
    if (object->objectName() == name) {
        return object;
    }
    if (auto *item = qobject_cast<QQuickItem *>(object)) {
        const auto children = item->childItems();
        for (QQuickItem *child : children) {
            if (QObject *found = findBelow(child, name)) {
                return found;
            }
        }
    }
    const auto children = object->children();
    for (QObject *child : children) {
        if (!qobject_cast<QQuickItem *>(child)) {
            if (QObject *found = findBelow(child, name)) {
                return found;
            }
        }
    }
    return object->findChild<QObject *>(name);
}

QmlView::QmlView()
    : m_view(std::make_unique<QQuickView>())
{
    m_view->setResizeMode(QQuickView::SizeViewToRootObject);
    m_view->setPosition(100, 100);
    m_view->setFlag(Qt::FramelessWindowHint);
}

QmlView::~QmlView() = default;

void QmlView::load(const QByteArray &qml)
{
    QQmlComponent *component = new QQmlComponent(m_view->engine(), m_view.get());
    component->setData("import QtQuick 2.12; import ombrel.Controls 1.0\n" + qml,
                       QUrl::fromLocalFile(QDir::currentPath() + QStringLiteral("/inline.qml")));
    QObject *object = component->create();
    if (!object) {
        qFatal("%s", qPrintable(component->errorString()));
    }
    m_view->setContent(component->url(), component, object);
    if (!m_view->rootObject()) {
        qFatal("The root of the document is not an item");
    }
}

void QmlView::loadFile(const QString &path)
{
    const QString file = QFINDTESTDATA(path);
    if (file.isEmpty() && !QDir::isAbsolutePath(path)) {
        qFatal("No file %s", qPrintable(path));
    }
    m_view->setSource(QUrl::fromLocalFile(file.isEmpty() ? path : file));
    if (m_view->status() != QQuickView::Ready) {
        const auto errors = m_view->errors();
        for (const QQmlError &error : errors) {
            qWarning("%s", qPrintable(error.toString()));
        }
        qFatal("%s does not load", qPrintable(path));
    }
}

void QmlView::show()
{
    m_view->show();
    m_view->requestActivate();
    bool shown = QTest::qWaitForWindowExposed(m_view.get())
        && QTest::qWaitForWindowActive(m_view.get(), 1000);
    // Another program that has just begun may have taken the focus.
    for (int attempt = 0; attempt < 10 && !shown; ++attempt) {
        m_view->requestActivate();
        shown = QTest::qWaitForWindowActive(m_view.get(), 1000);
    }
    if (!shown) {
        qFatal("The window is not shown");
    }
}

QObject *QmlView::find(const QString &name) const
{
    return root() ? findBelow(root(), name) : nullptr;
}

void QmlView::close()
{
    m_view.reset();
}

QVariant evaluate(QObject *object, const QString &expression)
{
    QQmlExpression script(qmlContext(object), object, expression);
    bool undefined = false;
    const QVariant value = script.evaluate(&undefined);
    if (script.hasError()) {
        qFatal("%s", qPrintable(script.error().toString()));
    }
    return value;
}

} // namespace support
