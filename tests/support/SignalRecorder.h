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
///
/// What is followed is looked at whenever a signal is emitted, and at the end: a value that has
/// changed since gets an entry of its own, before the signal's. So the record says in which order
/// things are written, whether they have signals or not:
///
///     recorder.watch(popup, "popup", {"openChanged"});
///     recorder.follow(popup, "popup", {"open", "visible"});
///     QMetaObject::invokeMethod(popup, "show");
///     // "popup.open = true", "popup.visible = true", "popup.openChanged"
///
/// Values that change between the same two signals stand in the order in which they are followed.
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

    /// Follows \a properties of \a object, or all that its own class declares.
    void follow(QObject *object, const QString &name, QStringList properties = {});
    /// Follows a value that is no property.
    void follow(const QString &name, std::function<QVariant()> value);
    /// Adds an entry of the caller's own.
    void note(const QString &entry);

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
    struct Followed
    {
        QString name;
        std::function<QVariant()> value;
        QString last;
    };
    void noteChanges();
    void append(const QString &entry, const QVariantList &arguments = {});

    std::vector<Slot> m_slots;
    std::vector<Followed> m_followed;
    QStringList m_entries;
    QVariantList m_arguments;
};

} // namespace support
