// SPDX-License-Identifier: MIT
#include "e2e/ServerResources.h"

#include "e2e/Xcb.h"

#include <QX11Info>

#include <vector>

#include <xcb/res.h>

namespace e2e {

namespace {

using xcb::owned;

/// A resource's id tells whose it is by its upper bits.
std::vector<std::uint32_t> clientsOf(xcb_connection_t *connection, qint64 pid) {
    const xcb_res_client_id_spec_t everybody{0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto reply = owned(xcb_res_query_client_ids_reply(
        connection, xcb_res_query_client_ids(connection, 1, &everybody), nullptr));
    std::vector<std::uint32_t> clients;
    if (!reply)
        return clients;
    for (auto id = xcb_res_query_client_ids_ids_iterator(reply.get()); id.rem > 0;
         xcb_res_client_id_value_next(&id))
        if (id.data->length == sizeof(std::uint32_t) && *xcb_res_client_id_value_value(id.data) == pid)
            clients.push_back(id.data->spec.client);
    return clients;
}

QByteArray nameOf(xcb_connection_t *connection, xcb_atom_t atom) {
    const auto reply =
        owned(xcb_get_atom_name_reply(connection, xcb_get_atom_name(connection, atom), nullptr));
    return reply ? QByteArray(xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get()))
                 : QByteArray();
}

} // namespace

ServerResources serverResourcesOf(qint64 pid) {
    xcb_connection_t *const connection = QX11Info::connection();
    ServerResources resources;
    for (const std::uint32_t client : clientsOf(connection, pid)) {
        const auto kinds = owned(xcb_res_query_client_resources_reply(
            connection, xcb_res_query_client_resources(connection, client), nullptr));
        const auto bytes = owned(xcb_res_query_client_pixmap_bytes_reply(
            connection, xcb_res_query_client_pixmap_bytes(connection, client), nullptr));
        if (!kinds || !bytes)
            continue; // this connection has gone meanwhile
        for (auto kind = xcb_res_query_client_resources_types_iterator(kinds.get()); kind.rem > 0;
             xcb_res_type_next(&kind))
            resources[nameOf(connection, kind.data->resource_type)] += kind.data->count;
        resources["bytes of pixmaps"] += (qint64(bytes->bytes_overflow) << 32) + bytes->bytes;
    }
    return resources;
}

QStringList grown(const ServerResources &before, const ServerResources &now) {
    QStringList more;
    for (auto kind = now.begin(); kind != now.end(); ++kind)
        if (kind.value() > before.value(kind.key()))
            more += QStringLiteral("%1: %2, before %3")
                        .arg(QString::fromLatin1(kind.key()))
                        .arg(kind.value())
                        .arg(before.value(kind.key()));
    return more;
}

} // namespace e2e
