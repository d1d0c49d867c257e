#include "core/qt_pixels.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <span>
#include <vector>

namespace melvane {

namespace {

/// The picture that `painter` paints on, when its pixels can be set without the painter.
QImage* plainPicture(const QPainter& painter) {
    if (painter.device()->devType() != QInternal::Image || painter.hasClipping()) return nullptr;
    if (painter.opacity() < 1 || painter.compositionMode() != QPainter::CompositionMode_SourceOver)
        return nullptr;
    auto* const picture = static_cast<QImage*>(painter.device());
    const bool known = picture->format() == QImage::Format_RGB32 && painter.deviceTransform().isIdentity();
    return known ? picture : nullptr;
}

/// `source`, with its alpha in its colours, over what is left of `below`: `rest` of 255.
QRgb blended(QRgb source, QRgb below, int rest) {
    const auto share = [rest](int value) { return (value * rest + 127) / 255; };
    return qRgb(qRed(source) + share(qRed(below)), qGreen(source) + share(qGreen(below)),
                qBlue(source) + share(qBlue(below)));
}

}  // namespace

PixelPainter::PixelPainter(QPainter& painter) : painter_(painter), ratio_(painter.deviceTransform().m11()) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing, false);
    if (ratio_ <= 0) ratio_ = 1;
    painter_.scale(1 / ratio_, 1 / ratio_);
    kept_ = plainPicture(painter_);
    if (kept_ != nullptr) pixels_ = kept_->bits();
}

PixelPainter::~PixelPainter() { painter_.restore(); }

int PixelPainter::device(int logical) const {
    return ratio_ == 1 ? logical : static_cast<int>(std::lround(logical * ratio_));
}

void PixelPainter::box(int left, int top, int right, int bottom, const QColor& colour) {
    if (right < left || bottom < top) return;
    const int x = device(left), y = device(top);
    const QRect box(x, y, std::max(1, device(right + 1) - x), std::max(1, device(bottom + 1) - y));
    if (kept_ != nullptr)
        fill(box.intersected(kept_->rect()), colour);
    else
        painter_.fillRect(box, colour);
}

/// The painter would hand each box of some height to its threads and wait for them, a line of one pixel too.
void PixelPainter::fill(QRect box, const QColor& colour) const {
    const QRgb source = qPremultiply(colour.rgba());
    const int rest = 255 - colour.alpha();
    for (int y = box.top(); y <= box.bottom(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(pixels_ + y * kept_->bytesPerLine());
        const std::span<QRgb> stretch(line + box.left(), static_cast<std::size_t>(box.width()));
        if (rest == 0)
            std::ranges::fill(stretch, source);
        else
            for (QRgb& pixel : stretch) pixel = blended(source, pixel, rest);
    }
}

/// Row by row, as the pixels lie: line by line each pixel would be far from the one before.
void PixelPainter::verticalLines(std::span<const int> places, int top, int bottom, const QColor& colour) {
    if (kept_ == nullptr || colour.alpha() < 255) {
        for (const int x : places) verticalLine(x, top, bottom, colour);
        return;
    }
    std::vector<int> across;  // the pixels of a row that belong to lines
    for (const int place : places) {
        const int end = std::min(std::max(device(place) + 1, device(place + 1)), kept_->width());
        for (int x = std::max(0, device(place)); x < end; ++x) across.push_back(x);
    }
    const int from = std::max(0, device(top)), to = std::min(kept_->height(), device(bottom + 1));
    const qsizetype rowBytes = kept_->bytesPerLine();
    const QRgb ink = colour.rgb();
    for (int y = from; y < to; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(pixels_ + y * rowBytes);
        for (const int x : across) row[x] = ink;
    }
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
