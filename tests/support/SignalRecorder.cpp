// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/SignalRecorder.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QPointF>
#include <QPointer>

namespace support {

SignalRecorder::~SignalRecorder() = default;

void SignalRecorder::watch(QObject *object, const QString &name, const QStringList &signalNames,
                           Probe probe)
{
    const QMetaObject *meta = object->metaObject();
    QStringList missing = signalNames;
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        const QString signalName = QString::fromLatin1(method.name());
        if (method.methodType() != QMetaMethod::Signal || method.name() == "destroyed") {
            continue;
        }
        if (!signalNames.isEmpty() && !signalNames.contains(signalName)) {
            continue;
        }
        missing.removeAll(signalName);
        Slot slot;
        slot.entry = name + QLatin1Char('.') + signalName;
        for (int p = 0; p < method.parameterCount(); ++p) {
            slot.types.append(method.parameterType(p));
        }
        slot.probe = probe;
        m_slots.push_back(std::move(slot));
        const int id = QObject::staticMetaObject.methodCount() + int(m_slots.size()) - 1;
        QMetaObject::connect(object, i, this, id, Qt::DirectConnection);
    }
    if (!missing.isEmpty()) {
        qFatal("SignalRecorder: %s has no signal %s", qPrintable(name),
               qPrintable(missing.join(QLatin1Char(','))));
    }
}

/// A value as an entry shows it.
static QString shown(const QVariant &value)
{
    if (value.userType() == QMetaType::QPointF) {
        const QPointF point = value.toPointF();
        return QStringLiteral("(%1, %2)").arg(point.x()).arg(point.y());
    }
    if (auto *const object = value.value<QObject *>()) {
        return object->objectName().isEmpty()
            ? QString::fromLatin1(object->metaObject()->className())
            : object->objectName();
    }
    return value.isValid() && !value.toString().isNull() ? value.toString()
                                                         : QStringLiteral("null");
}

void SignalRecorder::follow(QObject *object, const QString &name, QStringList properties)
{
    const QMetaObject *const meta = object->metaObject();
    if (properties.isEmpty()) {
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
            properties.append(QString::fromLatin1(meta->property(i).name()));
        }
    }
    const QPointer<QObject> guarded(object);
    for (const QString &property : qAsConst(properties)) {
        const QByteArray key = property.toLatin1();
        if (meta->indexOfProperty(key) < 0) {
            qFatal("SignalRecorder: %s has no property %s", qPrintable(name), key.constData());
        }
        follow(name + QLatin1Char('.') + property, [guarded, key]() -> QVariant {
            return guarded ? guarded->property(key) : QStringLiteral("gone");
        });
    }
}

void SignalRecorder::follow(const QString &name, std::function<QVariant()> value)
{
    const QString now = shown(value());
    m_followed.push_back({name, std::move(value), now});
}

void SignalRecorder::note(const QString &entry)
{
    noteChanges();
    append(entry);
}

void SignalRecorder::noteChanges()
{
    for (Followed &followed : m_followed) {
        const QString now = shown(followed.value());
        if (now != followed.last) {
            followed.last = now;
            append(followed.name + QStringLiteral(" = ") + now);
        }
    }
}

void SignalRecorder::append(const QString &entry, const QVariantList &arguments)
{
    m_entries.append(entry);
    m_arguments.append(QVariant(arguments));
}

QStringList SignalRecorder::take()
{
    noteChanges();
    m_arguments.clear();
    QStringList taken;
    taken.swap(m_entries);
    return taken;
}

int SignalRecorder::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod) {
        return id;
    }
    const Slot &slot = m_slots.at(size_t(id));
    QVariantList values;
    for (int i = 0; i < slot.types.size(); ++i) {
        const int type = slot.types.at(i);
        if (type == QMetaType::QVariant) {
            values.append(*static_cast<const QVariant *>(arguments[i + 1]));
        } else if (type != QMetaType::UnknownType) {
            values.append(QVariant(type, arguments[i + 1]));
        } else {
            values.append(QVariant());
        }
    }
    QString entry = slot.entry;
    if (slot.probe) {
        entry += QStringLiteral(" [%1]").arg(slot.probe());
    }
    noteChanges();
    append(entry, values);
    return -1;
}

} // namespace support
