// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

#include "tests/support/Pointer.h"

#include <QByteArray>
#include <QSet>

#include <cstdlib>
#include <cstring>
#include <sys/uio.h>
#include <xcb/xcb.h>
#include <xcb/xcbext.h>

namespace support {

namespace {

/// The one request of the XTEST extension that is needed, as it goes over the wire. It is sent by
/// hand so that the core protocol's library is enough.
struct FakeInput
{
    quint8 majorOpcode = 0;
    quint8 minorOpcode = 2;
    quint16 length = 0;
    quint8 type = 0;
    quint8 detail = 0;
    quint16 unused1 = 0;
    quint32 delay = 0;
    quint32 root = 0;
    quint32 unused2[2] = {0, 0};
    qint16 x = 0;
    qint16 y = 0;
    quint32 unused3 = 0;
    quint8 unused4[3] = {0, 0, 0};
    quint8 device = 0;
};
static_assert(sizeof(FakeInput) == 36, "the request has no padding of the compiler's");

quint32 keySymbol(Qt::Key key)
{
    if (key >= Qt::Key_A && key <= Qt::Key_Z) {
        return quint32(key) - Qt::Key_A + 'a';
    }
    if (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde) {
        return quint32(key);
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
        return quint32(key) - Qt::Key_F1 + 0xffbe;
    }
    switch (key) {
    case Qt::Key_Backspace:
        return 0xff08;
    case Qt::Key_Tab:
        return 0xff09;
    case Qt::Key_Return:
        return 0xff0d;
    case Qt::Key_Escape:
        return 0xff1b;
    case Qt::Key_Home:
        return 0xff50;
    case Qt::Key_Left:
        return 0xff51;
    case Qt::Key_Up:
        return 0xff52;
    case Qt::Key_Right:
        return 0xff53;
    case Qt::Key_Down:
        return 0xff54;
    case Qt::Key_PageUp:
        return 0xff55;
    case Qt::Key_PageDown:
        return 0xff56;
    case Qt::Key_End:
        return 0xff57;
    case Qt::Key_Shift:
        return 0xffe1;
    case Qt::Key_Control:
        return 0xffe3;
    case Qt::Key_Alt:
        return 0xffe9;
    case Qt::Key_Delete:
        return 0xffff;
    default:
        qFatal("Pointer: no X key for %#x", unsigned(key));
    }
    return 0;
}

quint8 buttonNumber(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::MiddleButton:
        return 2;
    case Qt::RightButton:
        return 3;
    default:
        qFatal("Pointer: no X button for %#x", unsigned(button));
    }
    return 0;
}

} // namespace

class Pointer::Private
{
public:
    void connect();
    void send(quint8 type, quint8 detail, const QPoint &position = {});
    quint8 keyCode(Qt::Key key) const;

    xcb_connection_t *connection = nullptr;
    xcb_screen_t *screen = nullptr;
    quint8 opcode = 0;
    QSet<int> heldButtons;
    QSet<int> heldKeys;
};

void Pointer::Private::connect()
{
    int number = 0;
    connection = xcb_connect(nullptr, &number);
    if (xcb_connection_has_error(connection)) {
        return;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0 && screens.rem > 1; --number) {
        xcb_screen_next(&screens);
    }
    screen = screens.data;
    const char name[] = "XTEST";
    xcb_query_extension_reply_t *reply = xcb_query_extension_reply(
        connection, xcb_query_extension(connection, sizeof(name) - 1, name), nullptr);
    if (reply && reply->present) {
        opcode = reply->major_opcode;
    }
    std::free(reply);
}

void Pointer::Private::send(quint8 type, quint8 detail, const QPoint &position)
{
    if (!opcode) {
        qFatal("Pointer: no X server that takes synthetic input");
    }
    FakeInput request;
    request.type = type;
    request.detail = detail;
    request.root = type == XCB_MOTION_NOTIFY ? screen->root : 0;
    request.x = qint16(position.x());
    request.y = qint16(position.y());

    xcb_protocol_request_t protocol;
    std::memset(&protocol, 0, sizeof(protocol));
    protocol.count = 1;
    protocol.opcode = opcode;
    protocol.isvoid = 1;
    // The library wants two free entries before the first one it is given.
    iovec parts[3];
    parts[2].iov_base = &request;
    parts[2].iov_len = sizeof(request);
    xcb_send_request(connection, 0, parts + 2, &protocol);
    // A round trip: the server is done with the input when this returns.
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

quint8 Pointer::Private::keyCode(Qt::Key key) const
{
    const quint32 symbol = keySymbol(key);
    const xcb_setup_t *setup = xcb_get_setup(connection);
    const quint8 count = quint8(setup->max_keycode - setup->min_keycode + 1);
    xcb_get_keyboard_mapping_reply_t *reply = xcb_get_keyboard_mapping_reply(
        connection, xcb_get_keyboard_mapping(connection, setup->min_keycode, count), nullptr);
    quint8 code = 0;
    if (reply) {
        const xcb_keysym_t *symbols = xcb_get_keyboard_mapping_keysyms(reply);
        for (int i = 0; i < count && !code; ++i) {
            if (symbols[i * reply->keysyms_per_keycode] == symbol) {
                code = quint8(setup->min_keycode + i);
            }
        }
    }
    std::free(reply);
    if (!code) {
        qFatal("Pointer: the keyboard has no key %#x", symbol);
    }
    return code;
}

Pointer::Pointer()
    : d(std::make_unique<Private>())
{
    d->connect();
}

Pointer::~Pointer()
{
    if (isValid()) {
        releaseAll();
        move({d->screen->width_in_pixels - 1, d->screen->height_in_pixels - 1});
    }
    xcb_disconnect(d->connection);
}

bool Pointer::isValid() const
{
    return d->opcode && !xcb_connection_has_error(d->connection);
}

void Pointer::move(const QPoint &position)
{
    d->send(XCB_MOTION_NOTIFY, 0, position);
}

void Pointer::press(Qt::MouseButton button)
{
    d->heldButtons.insert(buttonNumber(button));
    d->send(XCB_BUTTON_PRESS, buttonNumber(button));
}

void Pointer::release(Qt::MouseButton button)
{
    d->heldButtons.remove(buttonNumber(button));
    d->send(XCB_BUTTON_RELEASE, buttonNumber(button));
}

void Pointer::turnWheel(int notches)
{
    // The server has the wheel as two buttons.
    const quint8 button = notches > 0 ? 5 : 4;
    for (int i = 0; i < qAbs(notches); ++i) {
        d->send(XCB_BUTTON_PRESS, button);
        d->send(XCB_BUTTON_RELEASE, button);
    }
}

void Pointer::pressKey(Qt::Key key)
{
    const quint8 code = d->keyCode(key);
    d->heldKeys.insert(code);
    d->send(XCB_KEY_PRESS, code);
}

void Pointer::releaseKey(Qt::Key key)
{
    const quint8 code = d->keyCode(key);
    d->heldKeys.remove(code);
    d->send(XCB_KEY_RELEASE, code);
}

void Pointer::releaseAll()
{
    for (int button : qAsConst(d->heldButtons)) {
        d->send(XCB_BUTTON_RELEASE, quint8(button));
    }
    for (int code : qAsConst(d->heldKeys)) {
        d->send(XCB_KEY_RELEASE, quint8(code));
    }
    d->heldButtons.clear();
    d->heldKeys.clear();
}

} // namespace support
