// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include <OmbrelDataCore/Context.h>
#include <OmbrelDataCore/Document.h>

#include <QtQml>

namespace om::data {

namespace {

// Done as the library loads and not by the QML module: a program may hand documents to QML that
// never imports the module, and a list property of documents has to be known by then as one.
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
