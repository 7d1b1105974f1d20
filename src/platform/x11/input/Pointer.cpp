// SPDX-License-Identifier: MIT
#include "platform/x11/input/Pointer.h"

#include "platform/x11/input/Connection.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace vexa::x11 {

std::optional<PointerState> pointerState(const Connection &connection) {
    xcb_connection_t *x = connection.get();
    const Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(x, xcb_query_pointer(x, connection.root()), nullptr));
    if (!pointer)
        return std::nullopt;
    return PointerState{{pointer->root_x, pointer->root_y}, pointer->mask};
}

bool selectPointerMoves(const Connection &connection) {
    if (!connection.has(xcb_input_id))
        return false;
    xcb_connection_t *x = connection.get();
    // To clients of older versions the server reports no raw events while another client has a grab.
    const Reply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(x, xcb_input_xi_query_version(x, 2, 2), nullptr));
    if (!version || version->major_version < 2 || (version->major_version == 2 && version->minor_version < 1))
        return false;
    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t events;
    } rawMotion{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, XCB_INPUT_XI_EVENT_MASK_RAW_MOTION};
    xcb_input_xi_select_events(x, connection.root(), 1, &rawMotion.head);
    return true;
}

bool takePointerMoves(const Connection &connection) {
    bool moved = false;
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection.get())})
        moved = moved || event->response_type == XCB_GE_GENERIC;
    return moved;
}

} // namespace vexa::x11
