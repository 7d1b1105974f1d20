// SPDX-License-Identifier: MIT
#include "platform/x11/SharedPictures.h"

#include <QTimerEvent>
#include <QX11Info>

#include <xcb/shm.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <utility>

namespace vexa::platform {
namespace {

constexpr int bytesPerPixel = 4;

xcb_screen_t *screenOf(xcb_connection_t *connection) {
    int number = QX11Info::appScreen();
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (number-- > 0 && screens.rem > 1)
        xcb_screen_next(&screens);
    return screens.data;
}

/// Whether the server's pixels are words of the toolkit's kind, but for the byte that the server leaves open.
bool pixelsAreOurs(xcb_connection_t *connection) {
    const xcb_setup_t *setup = xcb_get_setup(connection);
    const bool littleEndian = Q_BYTE_ORDER == Q_LITTLE_ENDIAN;
    if ((setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST) != littleEndian)
        return false;
    const xcb_screen_t *screen = screenOf(connection);
    bool words = false;
    for (auto formats = xcb_setup_pixmap_formats_iterator(setup); formats.rem; xcb_format_next(&formats))
        words |= formats.data->depth == screen->root_depth && formats.data->bits_per_pixel == 32;
    if (!words)
        return false;
    for (auto depths = xcb_screen_allowed_depths_iterator(screen); depths.rem; xcb_depth_next(&depths)) {
        auto visuals = xcb_depth_visuals_iterator(depths.data);
        for (; visuals.rem; xcb_visualtype_next(&visuals)) {
            const xcb_visualtype_t &visual = *visuals.data;
            if (visual.visual_id == screen->root_visual)
                return visual.red_mask == 0xFF0000 && visual.green_mask == 0xFF00 && visual.blue_mask == 0xFF;
        }
    }
    return false;
}

bool isUsable() {
    xcb_connection_t *connection = QX11Info::isPlatformX11() ? QX11Info::connection() : nullptr;
    return connection && SharedSegment::isSupported(connection) && pixelsAreOurs(connection);
}

bool fetch(xcb_connection_t *connection, const QRect &pixels, const SharedSegment &segment) {
    const auto request = xcb_shm_get_image(
        connection, screenOf(connection)->root, static_cast<qint16>(pixels.x()),
        static_cast<qint16>(pixels.y()), static_cast<quint16>(pixels.width()),
        static_cast<quint16>(pixels.height()), ~0U, XCB_IMAGE_FORMAT_Z_PIXMAP, segment.id(), 0);
    xcb_generic_error_t *refused = nullptr;
    std::free(xcb_shm_get_image_reply(connection, request, &refused));
    std::free(refused);
    return !refused && !xcb_connection_has_error(connection);
}

void makeOpaque(uchar *data, std::size_t pixels) {
    auto *const words = reinterpret_cast<quint32 *>(data);
    for (std::size_t i = 0; i < pixels; ++i)
        words[i] |= 0xFF000000;
}

/// What a picture holds until its last copy goes.
struct Lease {
    std::shared_ptr<SegmentStore> store;
    std::unique_ptr<SharedSegment> segment;
};

void endLease(void *lease) {
    const std::unique_ptr<Lease> ended(static_cast<Lease *>(lease));
    ended->store->put(std::move(ended->segment));
}

} // namespace

SharedPictures::SharedPictures(std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent)
    , m_patience(patience)
    , m_usable(isUsable())
    , m_store(std::make_shared<SegmentStore>()) {}

QImage SharedPictures::take(const QRect &pixels) {
    if (!m_usable || pixels.isEmpty())
        return {};
    xcb_connection_t *connection = QX11Info::connection();
    const std::size_t count = std::size_t(pixels.width()) * std::size_t(pixels.height());
    auto segment = m_store->take(count * bytesPerPixel);
    if (!segment)
        segment = SharedSegment::create(connection, count * bytesPerPixel);
    if (!segment)
        return {};
    m_tidying.start(int(m_patience.count()), this);
    if (!fetch(connection, pixels, *segment)) {
        m_store->put(std::move(segment));
        return {};
    }
    uchar *const data = segment->data();
    makeOpaque(data, count);
    return {data,
            pixels.width(),
            pixels.height(),
            pixels.width() * bytesPerPixel,
            QImage::Format_RGB32,
            endLease,
            new Lease{m_store, std::move(segment)}};
}

std::size_t SharedPictures::keptBytes() const {
    return m_store->bytes();
}

void SharedPictures::timerEvent(QTimerEvent * /*event*/) {
    for (const auto &segment : m_store->takeUnused())
        segment->detach(QX11Info::connection());
    const bool everyPictureIsGone = m_store.use_count() == 1;
    if (everyPictureIsGone && m_store->bytes() == 0)
        m_tidying.stop();
}

} // namespace vexa::platform
