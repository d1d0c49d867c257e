#pragma once
#include <QtGui/qwindowdefs.h>
#include <QPoint>

class QWidget;

namespace melvane {

/// Moves a window to a corner, in pixels of the screens, and from there as far as it takes to be wholly on a
/// screen that exists.
void placeOnScreen(QWidget& window, QPoint corner);

/// The handle by which the system knows the widget, which has one from now on. Nothing else gets one: the
/// widgets beside it, or beside its owner's, would be painted and ordered by the system, each for itself.
WId systemHandle(const QWidget& widget);

/// Before it is shown: it stays in front of the window that is active now, also where another owns it.
void putBeforeActiveWindow(QWidget& window);

/// Twips (15 a pixel) as pixels; a place far outside every screen comes back inside their range.
int pixelsOfTwips(double twips);

}  // namespace melvane
