#pragma once
#include <QSize>

class QPainter;

namespace melvane {

/// The two looks of the windows' frames.
enum class FrameLook { flat, stylized };

/// Paints the edges of a window of that size, all around; what lies inside them is left alone.
void paintFrameEdges(QPainter& painter, QSize window, FrameLook look, int cornerDiameter);
/// Paints the ground of a title bar that reaches from edge to edge.
void paintTitleGround(QPainter& painter, QSize bar, FrameLook look);

}  // namespace melvane
