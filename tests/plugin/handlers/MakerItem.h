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
    Q_PROPERTY(QQmlComponent *delegate READ delegate WRITE setDelegate)

public:
    explicit MakerItem(QQuickItem *parent = nullptr);
    ~MakerItem() override;

    QQmlComponent *delegate() const { return m_delegate; }
    virtual void setDelegate(QQmlComponent *delegate);

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

/// One that makes its item as soon as it is given the component: in the middle of the making of the
/// document that declares both.
class HastyMakerItem : public MakerItem
{
    Q_OBJECT

public:
    explicit HastyMakerItem(QQuickItem *parent = nullptr);

    void setDelegate(QQmlComponent *delegate) override;

protected:
    void componentComplete() override;
};
