#include "core/qt_pixels.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace melvane {

PixelPainter::PixelPainter(QPainter& painter) : painter_(painter), ratio_(painter.deviceTransform().m11()) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing, false);
    if (ratio_ <= 0) ratio_ = 1;
    painter_.scale(1 / ratio_, 1 / ratio_);
}

PixelPainter::~PixelPainter() { painter_.restore(); }

int PixelPainter::device(int logical) const {
    return ratio_ == 1 ? logical : static_cast<int>(std::lround(logical * ratio_));
}

void PixelPainter::box(int left, int top, int right, int bottom, const QColor& colour) {
    if (right < left || bottom < top) return;
    const int x = device(left), y = device(top);
    painter_.fillRect(x, y, std::max(1, device(right + 1) - x), std::max(1, device(bottom + 1) - y), colour);
}

void PixelPainter::framedBox(int left, int top, int right, int bottom, const QColor& fill,
                             const QColor& line) {
    box(left, top, right, bottom, line);
    box(left + 1, top + 1, right - 1, bottom - 1, fill);
}

void PixelPainter::frame(int left, int top, int right, int bottom, int line, const QColor& colour) {
    box(left, top, right, top + line - 1, colour);
    box(left, bottom - line + 1, right, bottom, colour);
    box(left, top + line, left + line - 1, bottom - line, colour);
    box(right - line + 1, top + line, right, bottom - line, colour);
}

void PixelPainter::picture(int x, int y, const QImage& picture) {
    painter_.drawImage(device(x), device(y), picture);
}

void copyPixels(QImage& target, QPoint to, const QImage& source, QRect area) {
    const QRect inside = area.intersected(source.rect());
    const QPoint offset = to - area.topLeft();
    const QRect landing = inside.translated(offset).intersected(target.rect());
    if (landing.isEmpty()) return;
    const auto pixelBytes = static_cast<std::size_t>(source.depth() / 8);
    const auto bytes = static_cast<std::size_t>(landing.width()) * pixelBytes;
    for (int y = landing.top(); y <= landing.bottom(); ++y) {
        const auto from = static_cast<std::size_t>(landing.left() - offset.x()) * pixelBytes;
        const auto at = static_cast<std::size_t>(landing.left()) * pixelBytes;
        std::memcpy(target.scanLine(y) + at, source.constScanLine(y - offset.y()) + from, bytes);
    }
}

}  // namespace melvane
