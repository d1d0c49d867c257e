#pragma once
#include <QColor>

class QApplication;

namespace melvane {

/// The palette of the program's own; what the design fixes for the score's surfaces stands with them.
namespace palette {
inline constexpr QColor ground(207, 207, 207), accent(0x11, 0x71, 0xC5);
inline constexpr QColor text(0x1E, 0x23, 0x29), secondaryText(0x55, 0x60, 0x6B),
    disabledText(0x8A, 0x91, 0x99);
inline constexpr QColor panel(0xDE, 0xDE, 0xDE), panelEdge(0xA9, 0xA9, 0xA9);
inline constexpr QColor field(0xFF, 0xFF, 0xFF), fieldEdge(0x9A, 0xA0, 0xA6);
}  // namespace palette

/// Gives the application its font, palette and the one style sheet. Once, before the first window.
void applyStyle(QApplication& application);

/// Black or white, whichever reads better on `ground`.
QColor readableOn(const QColor& ground);

}  // namespace melvane
