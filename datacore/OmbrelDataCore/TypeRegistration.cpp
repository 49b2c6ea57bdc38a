// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QtQml>

namespace om::data {

namespace {

// When the library is loaded, not by the QML module: a program may pass documents to QML that does
// not import the module, and QQmlListReference needs the element type to be registered.
void registerTypes()
{
    qRegisterMetaType<Document *>();
    qRegisterMetaType<Context *>();
    qmlRegisterType<Document>();
    qmlRegisterType<Context>();
}

} // namespace

Q_CONSTRUCTOR_FUNCTION(registerTypes)

} // namespace om::data
