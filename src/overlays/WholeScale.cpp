// SPDX-License-Identifier: MIT
#include "overlays/WholeScale.h"

#include <QImage>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

namespace vexa {
namespace {

/// For each of `count` larger steps, the one of `available` steps that its middle lies in.
std::vector<int> nearest(int count, double enlargement, int available) {
    std::vector<int> steps(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        steps[static_cast<std::size_t>(i)] = std::min(int((i + 0.5) / enlargement), available - 1);
    return steps;
}

} // namespace

QPixmap atWholeScale(const QPixmap &picture, const QSize &points) {
    const double scale = picture.devicePixelRatio();
    const int whole = int(std::ceil(scale));
    if (picture.isNull() || scale == whole)
        return picture;
    const QImage from = picture.toImage().convertToFormat(QImage::Format_RGB32);
    QImage to(points * whole, QImage::Format_RGB32);
    const std::vector<int> columns = nearest(to.width(), whole / scale, from.width());
    const std::vector<int> rows = nearest(to.height(), whole / scale, from.height());
    const int stride = to.bytesPerLine();
    for (int y = 0; y < to.height(); ++y) {
        const auto row = static_cast<std::size_t>(y);
        uchar *line = to.scanLine(y);
        if (y > 0 && rows[row] == rows[row - 1]) {
            std::memcpy(line, line - stride, static_cast<std::size_t>(stride));
            continue;
        }
        const auto *source = reinterpret_cast<const QRgb *>(from.constScanLine(rows[row]));
        std::transform(columns.begin(), columns.end(), reinterpret_cast<QRgb *>(line),
                       [source](int column) { return source[column]; });
    }
    to.setDevicePixelRatio(whole);
    return QPixmap::fromImage(std::move(to));
}

} // namespace vexa
