// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT
//
// A drag source that knows nothing of Qt: a window and the X drag-and-drop protocol, as a file
// manager of another toolkit has it. See ForeignProgram.h.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <poll.h>
#include <string>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

constexpr uint32_t protocolVersion = 5;

class Source
{
public:
    explicit Source(xcb_connection_t *server)
        : m_server(server)
        , m_screen(xcb_setup_roots_iterator(xcb_get_setup(server)).data)
    {
    }

    void offer(const std::string &type, const std::string &bytes) { m_offers[atom(type)] = bytes; }
    void show(int16_t x, int16_t y, uint16_t width, uint16_t height);
    void handle(const xcb_generic_event_t *event);

private:
    xcb_atom_t atom(const std::string &name);
    xcb_window_t targetBelowThePointer();
    void send(const char *type, uint32_t data1, uint32_t data2 = 0, uint32_t data3 = 0,
              uint32_t data4 = 0);
    void start(xcb_timestamp_t time);
    void move(int16_t x, int16_t y, xcb_timestamp_t time);
    void askForAction();
    void drop(xcb_timestamp_t time);
    void finish(int result);
    void answer(const xcb_selection_request_event_t *request);

    xcb_connection_t *const m_server;
    xcb_screen_t *const m_screen;
    xcb_window_t m_window = 0;
    std::map<xcb_atom_t, std::string> m_offers;
    xcb_window_t m_target = 0;
    uint32_t m_position = 0;
    xcb_timestamp_t m_time = 0;
    bool m_ready = false;
    bool m_dragging = false;
    bool m_accepted = false;
    /// A target gets no second position before it has answered the first.
    bool m_waiting = false;
    bool m_moved = false;
    bool m_dropPending = false;
};

void say(const std::string &line)
{
    std::puts(line.c_str());
    std::fflush(stdout);
}

xcb_atom_t Source::atom(const std::string &name)
{
    static std::map<std::string, xcb_atom_t> known;
    xcb_atom_t &found = known[name];
    if (!found) {
        xcb_intern_atom_reply_t *const reply = xcb_intern_atom_reply(
            m_server,
            xcb_intern_atom(m_server, 0, static_cast<uint16_t>(name.size()), name.c_str()),
            nullptr);
        if (reply) {
            found = reply->atom;
        }
        std::free(reply);
    }
    return found;
}

void Source::show(int16_t x, int16_t y, uint16_t width, uint16_t height)
{
    m_window = xcb_generate_id(m_server);
    const uint32_t values[] = {m_screen->white_pixel, 1,
                               XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_BUTTON_PRESS
                                   | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_BUTTON_MOTION};
    xcb_create_window(m_server, XCB_COPY_FROM_PARENT, m_window, m_screen->root, x, y, width, height,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(m_server, m_window);
    xcb_flush(m_server);
}

/// The topmost window below the pointer, or the next one around it, that takes part.
xcb_window_t Source::targetBelowThePointer()
{
    xcb_window_t found = 0;
    for (xcb_window_t window = m_screen->root; window;) {
        xcb_query_pointer_reply_t *const pointer =
            xcb_query_pointer_reply(m_server, xcb_query_pointer(m_server, window), nullptr);
        window = pointer ? pointer->child : 0;
        std::free(pointer);
        if (!window) {
            break;
        }
        xcb_get_property_reply_t *const aware = xcb_get_property_reply(
            m_server, xcb_get_property(m_server, 0, window, atom("XdndAware"), XCB_ATOM_ATOM, 0, 1),
            nullptr);
        if (aware && aware->type == XCB_ATOM_ATOM) {
            found = window;
        }
        std::free(aware);
    }
    return found;
}

void Source::send(const char *type, uint32_t data1, uint32_t data2, uint32_t data3, uint32_t data4)
{
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_target;
    message.type = atom(type);
    const uint32_t data[] = {m_window, data1, data2, data3, data4};
    std::memcpy(message.data.data32, data, sizeof data);
    xcb_send_event(m_server, 0, m_target, 0, reinterpret_cast<const char *>(&message));
    xcb_flush(m_server);
}

void Source::start(xcb_timestamp_t time)
{
    m_dragging = true;
    m_moved = m_waiting = m_accepted = m_dropPending = false;
    m_target = 0;
    xcb_set_selection_owner(m_server, m_window, atom("XdndSelection"), time);
    say("drag");
}

void Source::move(int16_t x, int16_t y, xcb_timestamp_t time)
{
    m_position = uint32_t(uint16_t(x)) << 16 | uint16_t(y);
    m_time = time;
    m_moved = true;
    const xcb_window_t target = targetBelowThePointer();
    if (target != m_target) {
        if (m_target) {
            send("XdndLeave", 0);
        }
        m_target = target;
        m_waiting = m_accepted = false;
        if (m_target) {
            // Up to three types fit into the message.
            uint32_t types[3] = {};
            size_t count = 0;
            for (const auto &offer : m_offers) {
                if (count < 3) {
                    types[count++] = offer.first;
                }
            }
            send("XdndEnter", protocolVersion << 24, types[0], types[1], types[2]);
        }
    }
    askForAction();
}

void Source::askForAction()
{
    if (m_target && m_moved && !m_waiting) {
        m_moved = false;
        m_waiting = true;
        send("XdndPosition", 0, m_position, m_time, atom("XdndActionCopy"));
    }
}

void Source::drop(xcb_timestamp_t time)
{
    m_time = time;
    if (m_waiting) {
        m_dropPending = true;
    } else if (!m_target) {
        finish(0);
    } else if (!m_accepted) {
        send("XdndLeave", 0);
        finish(0);
    } else {
        send("XdndDrop", 0, time);
    }
}

void Source::finish(int result)
{
    m_dragging = false;
    m_target = 0;
    say("result " + std::to_string(result));
}

void Source::answer(const xcb_selection_request_event_t *request)
{
    xcb_selection_notify_event_t notify = {};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request->time;
    notify.requestor = request->requestor;
    notify.selection = request->selection;
    notify.target = request->target;
    const auto offer = m_offers.find(request->target);
    if (offer != m_offers.end()) {
        notify.property = request->property;
        xcb_change_property(m_server, XCB_PROP_MODE_REPLACE, request->requestor, request->property,
                            request->target, 8, static_cast<uint32_t>(offer->second.size()),
                            offer->second.data());
    }
    xcb_send_event(m_server, 0, request->requestor, 0, reinterpret_cast<const char *>(&notify));
    xcb_flush(m_server);
}

void Source::handle(const xcb_generic_event_t *event)
{
    switch (event->response_type & 0x7f) {
    case XCB_EXPOSE: {
        if (m_ready) {
            break;
        }
        m_ready = true;
        xcb_get_geometry_reply_t *const geometry =
            xcb_get_geometry_reply(m_server, xcb_get_geometry(m_server, m_window), nullptr);
        if (geometry) {
            say("ready " + std::to_string(geometry->x) + ' ' + std::to_string(geometry->y) + ' '
                + std::to_string(geometry->width) + ' ' + std::to_string(geometry->height));
        }
        std::free(geometry);
        break;
    }
    case XCB_BUTTON_PRESS:
        start(reinterpret_cast<const xcb_button_press_event_t *>(event)->time);
        break;
    case XCB_MOTION_NOTIFY:
        if (m_dragging && !m_dropPending) {
            const auto *const motion = reinterpret_cast<const xcb_motion_notify_event_t *>(event);
            move(motion->root_x, motion->root_y, motion->time);
        }
        break;
    case XCB_BUTTON_RELEASE:
        if (m_dragging) {
            drop(reinterpret_cast<const xcb_button_release_event_t *>(event)->time);
        }
        break;
    case XCB_CLIENT_MESSAGE: {
        const auto *const message = reinterpret_cast<const xcb_client_message_event_t *>(event);
        if (!m_dragging || message->data.data32[0] != m_target) {
            break;
        }
        if (message->type == atom("XdndStatus")) {
            m_waiting = false;
            m_accepted = message->data.data32[1] & 1;
            if (m_dropPending) {
                m_dropPending = false;
                drop(m_time);
            } else {
                askForAction();
            }
        } else if (message->type == atom("XdndFinished")) {
            say("finished " + std::to_string(message->data.data32[1] & 1));
            finish(1);
        }
        break;
    }
    case XCB_SELECTION_REQUEST:
        answer(reinterpret_cast<const xcb_selection_request_event_t *>(event));
        break;
    default:
        break;
    }
}

} // namespace

int main(int argc, char **argv)
{
    xcb_connection_t *const server = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(server)) {
        std::fputs("plain_xdnd_source: no X server\n", stderr);
        return 1;
    }
    Source source(server);
    int x = 600;
    int y = 100;
    int width = 200;
    int height = 200;
    std::string urls;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string option = argv[i];
        const std::string value = argv[i + 1];
        if (option == "--url") {
            urls += value + "\r\n";
        } else if (option == "--text") {
            source.offer("text/plain", value);
        } else if (option == "--at") {
            std::sscanf(value.c_str(), "%d,%d", &x, &y);
        } else if (option == "--size") {
            std::sscanf(value.c_str(), "%dx%d", &width, &height);
        } else {
            std::fprintf(stderr, "plain_xdnd_source: unknown option %s\n", argv[i]);
            return 1;
        }
    }
    if (!urls.empty()) {
        source.offer("text/uri-list", urls);
    }
    source.show(static_cast<int16_t>(x), static_cast<int16_t>(y), static_cast<uint16_t>(width),
                static_cast<uint16_t>(height));

    pollfd ends[] = {{xcb_get_file_descriptor(server), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    while (!xcb_connection_has_error(server)) {
        while (xcb_generic_event_t *const event = xcb_poll_for_event(server)) {
            source.handle(event);
            std::free(event);
        }
        if (poll(ends, 2, -1) < 0) {
            break;
        }
        char byte = 0;
        if ((ends[1].revents & (POLLIN | POLLHUP)) && read(STDIN_FILENO, &byte, 1) <= 0) {
            break;
        }
    }
    xcb_disconnect(server);
    return 0;
}
