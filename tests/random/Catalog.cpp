// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/random/Catalog.h"

#include "tests/support/RegisteredTypes.h"
#include "tests/support/TypeDescriptions.h"

#include <QFile>
#include <QJsonArray>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQuickItem>

#include <memory>
#include <vector>

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

/// The descriptions of the types of the library's module.
std::vector<support::TypeBlock> describedTypes()
{
    QFile file(qEnvironmentVariable("OMBREL_SOURCE_DIR")
               + QStringLiteral("/types/ombrel.Controls.qmltypes"));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("There is no types/ombrel.Controls.qmltypes");
    }
    return support::readTypes(QString::fromUtf8(file.readAll())).blocks.at(0).blocks;
}

/// The properties of what \a className attaches; only the descriptions know its type.
QJsonObject attachedTo(const QByteArray &className, const std::vector<support::TypeBlock> &types)
{
    QJsonObject properties;
    const support::TypeBlock *const type =
        support::typeNamed(types, QString::fromLatin1(className));
    const support::TypeBlock *const attached =
        type ? support::typeNamed(types, type->text("attachedType")) : nullptr;
    if (attached) {
        for (const support::TypeBlock *property : attached->children("Property")) {
            properties.insert(property->text("name"),
                              QJsonObject{
                                  {QStringLiteral("type"), property->text("type")},
                                  {QStringLiteral("writable"), !property->flag("isReadonly")},
                              });
        }
    }
    return properties;
}

} // namespace

QJsonObject catalog(QQmlEngine &engine)
{
    QJsonObject found;
    const std::vector<support::TypeBlock> descriptions = describedTypes();
    // What the data core registers is not in the list.
    const QStringList types = support::registeredTypes()
        << QStringLiteral("Context") << QStringLiteral("Document");
    for (const QString &type : types) {
        QQmlComponent component(&engine);
        component.setData("import ombrel.Controls 1.0\nimport ombrel.Controls.Private 1.0\n"
                          "import ombrel.data.Core 1.0\n"
                              + type.toLatin1() + " {}",
                          QUrl());
        const std::unique_ptr<QObject> object(component.create());
        if (!object) {
            qFatal("%s", qPrintable(component.errorString()));
        }
        QJsonObject description = described(object.get());
        description.insert(QStringLiteral("attached"),
                           attachedTo(object->metaObject()->className(), descriptions));
        found.insert(type, description);
    }
    return found;
}
