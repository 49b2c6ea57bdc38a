// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

namespace om::data {

Context::Context(QObject *parent)
    : QObject(parent)
{
}

Context::~Context() = default;

} // namespace om::data
