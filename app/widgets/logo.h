#pragma once

#include <QIcon>
#include <QRectF>

class QPainter;

namespace kestrin::widgets {

/// Draws the program's picture into the largest square in the middle of `place`:
/// a green field, the swaths of a boom across it, and the path between them.
/// Outlines only, so that it is sharp on screen and on paper.
void DrawLogo(QPainter& painter, const QRectF& place);

/// The same picture as the window's icon.
QIcon LogoIcon();

}  // namespace kestrin::widgets
