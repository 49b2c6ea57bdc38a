// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantList>

#include <functional>
#include <vector>

namespace support {

/// Records the signals of one or more objects in the order in which they are emitted.
///
///     SignalRecorder recorder;
///     recorder.watch(zone, "zone");
///     …
///     QCOMPARE(recorder.take(), (QStringList{"zone.containsDragChanged", "zone.entered"}));
///
/// A probe, called at each emission, adds what holds at that moment: "zone.entered [true]".
class SignalRecorder : public QObject
{
    // No Q_OBJECT: the slots are made at run time, one for each signal watched.
public:
    using Probe = std::function<QString()>;

    SignalRecorder() = default;
    ~SignalRecorder() override;

    /// Records every signal of \a object but destroyed(); entries read "<name>.<signal>".
    /// With \a signalNames, records these only.
    void watch(QObject *object, const QString &name, const QStringList &signalNames = {},
               Probe probe = {});

    /// The entries so far.
    QStringList entries() const { return m_entries; }
    /// The arguments of entry \a index.
    QVariantList arguments(int index) const { return m_arguments.value(index).toList(); }
    /// The entries so far; the record is empty afterwards.
    QStringList take();

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    struct Slot
    {
        QString entry;
        QList<int> types;
        Probe probe;
    };
    std::vector<Slot> m_slots;
    QStringList m_entries;
    QVariantList m_arguments;
};

} // namespace support
