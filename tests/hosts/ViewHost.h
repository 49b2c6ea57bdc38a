// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/hosts/Host.h"
#include "tests/support/QmlView.h"

#include <QVector>

/// A window of its own.
class ViewHost : public Host
{
public:
    enum Kind {
        Plain,
        Embedded,
        Core,
        GrabbedItem,
        Layer,
        Effect,
        Moved
    };
    static QVector<Kind> kinds();
    static QLatin1String nameOf(Kind kind);

    explicit ViewHost(Kind kind);

    void show(const QString &file) override;
    QQuickItem *root() const override { return m_view.root(); }
    QImage picture() override;

private:
    void askForFormat();
    void putOnWhite();
    void showThroughAnEffect();
    void moveToTheSecondScreen();

    const Kind m_kind;
    support::QmlView m_view;
};
