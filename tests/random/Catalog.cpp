// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/random/Catalog.h"

#include "tests/support/RegisteredTypes.h"

#include <QJsonArray>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQuickItem>

#include <memory>

namespace {

QJsonObject described(const QObject *object)
{
    const QMetaObject *const meta = object->metaObject();
    QJsonObject properties;
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        properties.insert(QString::fromLatin1(property.name()),
                          QJsonObject{
                              {QStringLiteral("type"), QString::fromLatin1(property.typeName())},
                              {QStringLiteral("writable"), property.isWritable()},
                          });
    }
    QJsonArray signalNames;
    QJsonObject functions;
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        const QString name = QString::fromLatin1(method.name());
        if (method.methodType() == QMetaMethod::Signal) {
            if (i >= QObject::staticMetaObject.methodCount() && !signalNames.contains(name)) {
                signalNames.append(name);
            }
        } else if (i >= QQuickItem::staticMetaObject.methodCount()
                   || !object->inherits("QQuickItem")) {
            QJsonArray parameters;
            const auto types = method.parameterTypes();
            for (const QByteArray &type : types) {
                parameters.append(QString::fromLatin1(type));
            }
            if (method.access() == QMetaMethod::Public && !name.startsWith(QLatin1Char('_'))
                && i >= QObject::staticMetaObject.methodCount()) {
                functions.insert(name, parameters);
            }
        }
    }
    return {{QStringLiteral("item"), object->inherits("QQuickItem")},
            {QStringLiteral("properties"), properties},
            {QStringLiteral("signals"), signalNames},
            {QStringLiteral("functions"), functions}};
}

} // namespace

QJsonObject catalog(QQmlEngine &engine)
{
    QJsonObject found;
    const QStringList types = support::registeredTypes();
    for (const QString &type : types) {
        QQmlComponent component(&engine);
        component.setData("import ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\n"
                              + type.toLatin1() + " {}",
                          QUrl());
        const std::unique_ptr<QObject> object(component.create());
        if (!object) {
            qFatal("%s", qPrintable(component.errorString()));
        }
        found.insert(type, described(object.get()));
    }
    return found;
}
