// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/hosts/Host.h"

#include <QQuickWidget>

/// A part of a window of widgets.
class WidgetHost : public Host
{
public:
    void show(const QString &file) override;
    QQuickItem *root() const override { return m_widget.rootObject(); }
    QImage picture() override;

private:
    QQuickWidget m_widget;
};
