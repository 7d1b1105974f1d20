// SPDX-License-Identifier: MIT
#include "platform/x11/ScreenBands.h"

#include "platform/x11/NativePixels.h"
#include "platform/x11/PictureReserve.h"
#include "platform/x11/input/Connection.h"
#include "platform/x11/input/ServerGrab.h"

#include <QX11Info>
#include <queue>

#include <algorithm>
#include <vector>

#include <xcb/shm.h>

namespace vexa::platform {
namespace {

constexpr std::size_t bytesPerPixel = 4;
constexpr std::size_t bytesPerBand = std::size_t(512) << 10; // stays in a processor's cache on its way
constexpr std::size_t bandsAtHand = 2;

struct Band {
    int top;
    int rows;
    std::size_t offset; ///< in the shared memory
};

std::size_t offsetOf(std::size_t number) {
    return number % bandsAtHand * bytesPerBand;
}

/// None when a single row is too long.
std::vector<Band> bandsOf(const QSize &size, int step = 1) {
    std::vector<Band> bands;
    if (size.isEmpty())
        return bands;
    const int fitting = int(bytesPerBand / (std::size_t(size.width()) * bytesPerPixel));
    const int rows = fitting / step * step;
    for (int top = 0; rows > 0 && top < size.height(); top += rows)
        bands.push_back({top, std::min(rows, size.height() - top), offsetOf(bands.size())});
    return bands;
}

/// Those that follow each other still have different places in the memory.
void sort(std::vector<Band> &bands, const ScreenBands::Rank &rank) {
    std::stable_sort(bands.begin(), bands.end(), [&rank](const Band &one, const Band &other) {
        return rank(one.top, one.rows) < rank(other.top, other.rows);
    });
    for (std::size_t number = 0; number < bands.size(); ++number)
        bands[number].offset = offsetOf(number);
}

/// Copies pixels and closes their fourth byte.
void copyOpaque(const uchar *from, uchar *to, std::size_t bytes) {
    const auto *const source = reinterpret_cast<const quint32 *>(from);
    auto *const target = reinterpret_cast<quint32 *>(to);
    for (std::size_t i = 0; i < bytes / bytesPerPixel; ++i)
        target[i] = source[i] | 0xFF000000;
}

} // namespace

ScreenBands *ScreenBands::instance() {
    static const std::unique_ptr<ScreenBands> bands = create();
    return bands.get();
}

std::unique_ptr<ScreenBands> ScreenBands::create() {
    xcb_connection_t *connection = QX11Info::isPlatformX11() ? QX11Info::connection() : nullptr;
    if (!connection || !SharedSegment::isSupported(connection) || !hasNativePixels(connection))
        return nullptr;
    auto segment = SharedSegment::create(connection, bandsAtHand * bytesPerBand);
    return segment ? std::unique_ptr<ScreenBands>(new ScreenBands(connection, std::move(segment))) : nullptr;
}

QImage ScreenBands::take(const QRect &place) const {
    const std::vector<Band> bands = bandsOf(place.size());
    QImage picture = bands.empty() ? QImage() : PictureReserve::picture(place.size());
    if (picture.isNull())
        return {};
    uchar *const data = picture.bits();
    const auto bytesPerLine = std::size_t(picture.bytesPerLine());

    struct Request {
        Band band;
        xcb_shm_get_image_cookie_t cookie;
    };
    std::queue<Request> underWay;
    bool whole = true;
    const auto receive = [&] {
        const auto [band, cookie] = underWay.front();
        underWay.pop();
        const x11::Reply<xcb_shm_get_image_reply_t> sent(
            xcb_shm_get_image_reply(m_connection, cookie, nullptr));
        whole = whole && sent;
        copyOpaque(m_segment->data() + band.offset, data + std::size_t(band.top) * bytesPerLine,
                   std::size_t(band.rows) * bytesPerLine);
    };

    const x11::ServerGrab grab(m_connection); // the screen does not change between two bands
    for (const Band &band : bands) {
        if (underWay.size() == bandsAtHand)
            receive();
        underWay.push(
            {band, xcb_shm_get_image(m_connection, screenOf(m_connection).root, qint16(place.x()),
                                     qint16(place.y() + band.top), quint16(place.width()), quint16(band.rows),
                                     ~0U, XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment->id(), quint32(band.offset))});
        xcb_flush(m_connection);
    }
    while (!underWay.empty())
        receive();
    return whole ? picture : QImage();
}

std::optional<quint32> ScreenBands::show(quint32 window, const QSize &size, int step, const Rank &rank,
                                         const Paint &paint) const {
    std::vector<Band> bands = bandsOf(size, step);
    if (bands.empty() || !hasNativePixels(m_connection, window))
        return std::nullopt;
    sort(bands, rank);

    const quint32 context = xcb_generate_id(m_connection);
    const auto begun = xcb_create_gc(m_connection, context, window, 0, nullptr);
    // The reply to a request that follows a band means that the server has read the band.
    std::queue<xcb_get_input_focus_cookie_t> underWay;
    const auto await = [&] {
        const x11::Reply<xcb_get_input_focus_reply_t> read(
            xcb_get_input_focus_reply(m_connection, underWay.front(), nullptr));
        underWay.pop();
    };
    const quint8 depth = screenOf(m_connection).root_depth;
    for (const Band &band : bands) {
        if (underWay.size() == bandsAtHand)
            await();
        QImage image(m_segment->data() + band.offset, size.width(), band.rows,
                     size.width() * int(bytesPerPixel), QImage::Format_RGB32);
        paint(image, band.top);
        xcb_shm_put_image(m_connection, window, context, quint16(size.width()), quint16(band.rows), 0, 0,
                          quint16(size.width()), quint16(band.rows), 0, qint16(band.top), depth,
                          XCB_IMAGE_FORMAT_Z_PIXMAP, 0, m_segment->id(), quint32(band.offset));
        underWay.push(xcb_get_input_focus(m_connection));
        xcb_flush(m_connection);
    }
    while (!underWay.empty())
        await();
    xcb_free_gc(m_connection, context);
    return begun.sequence;
}

} // namespace vexa::platform
