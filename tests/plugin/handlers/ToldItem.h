// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QQuickItem>

/// What an application makes from a component: it tells of each moment of its making and its end.
/// Its document, Told.qml, tells of those that QML has handlers for.
class ToldItem : public QQuickItem
{
    Q_OBJECT
    /// The property that holds the component.
    Q_PROPERTY(QString role MEMBER m_role)

public:
    explicit ToldItem(QQuickItem *parent = nullptr);
    ~ToldItem() override;

    QString role() const { return m_role; }

    Q_INVOKABLE void tellOf(const QString &moment);

protected:
    void classBegin() override;
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    QString m_role;
};
