#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace kestrin::widgets {

/// How thick every line and border is, in window pixels: the whole device pixels that
/// fit into one, so that all are alike however the desktop scales.
double BorderWidth(const QPainter& painter);

/// The rectangle, in window pixels, with its edges on the nearest device pixels: what
/// lies between them is painted sharp.
QRectF OnDevicePixels(const QPainter& painter, const QRectF& place);

/// A border along the inner side of the rectangle's edges.
void DrawBorder(QPainter& painter, const QRectF& place, const QColor& colour);

}  // namespace kestrin::widgets
