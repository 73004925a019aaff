#include "app/widgets/borders.h"

#include <QPainter>
#include <cmath>

namespace kestrin::widgets {

double BorderWidth(const QPainter& painter) {
  const double devicePixels = painter.deviceTransform().m11();
  return devicePixels < 1 ? 1 : std::floor(devicePixels) / devicePixels;
}

QRectF OnDevicePixels(const QPainter& painter, const QRectF& place) {
  const QTransform toDevice = painter.deviceTransform();
  const QRectF exact = toDevice.mapRect(place);
  const QPointF first(std::round(exact.left()), std::round(exact.top()));
  const QPointF last(std::round(exact.right()), std::round(exact.bottom()));
  return toDevice.inverted().mapRect(QRectF(first, last));
}

void DrawBorder(QPainter& painter, const QRectF& place, const QColor& colour) {
  const double line = BorderWidth(painter);
  const QRectF at = OnDevicePixels(painter, place);
  painter.fillRect(QRectF(at.left(), at.top(), at.width(), line), colour);
  painter.fillRect(QRectF(at.left(), at.bottom() - line, at.width(), line), colour);
  painter.fillRect(QRectF(at.left(), at.top(), line, at.height()), colour);
  painter.fillRect(QRectF(at.right() - line, at.top(), line, at.height()), colour);
}

}  // namespace kestrin::widgets
