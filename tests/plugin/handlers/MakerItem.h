// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>

#include <memory>

/// An item of Qt that makes an item from a component, in the way in which Qt bears the most: by an
/// incubator, placed before its bindings run, with nothing touched afterwards. A moment of the made
/// item in which it does not survive something is one in which Qt forbids that.
class MakerItem : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QQmlComponent *delegate MEMBER m_delegate)

public:
    explicit MakerItem(QQuickItem *parent = nullptr);
    ~MakerItem() override;

    Q_INVOKABLE void make();
    /// As a drag makes its visual: bit by bit, from the event loop.
    Q_INVOKABLE void makeBitByBit();

protected:
    void componentComplete() override;

private:
    void makeBy(std::unique_ptr<QQmlIncubator> incubator);

    QPointer<QQmlComponent> m_delegate;
    std::unique_ptr<QQmlIncubator> m_incubator;
};
