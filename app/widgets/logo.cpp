#include "app/widgets/logo.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace kestrin::widgets {

namespace {

/// The picture is drawn in a square of this side.
constexpr double kSide = 64;

void DrawField(QPainter& painter) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x2E, 0x7D, 0x32));
  painter.drawRoundedRect(QRectF(0, 0, kSide, kSide), 12, 12);
}

void DrawSwaths(QPainter& painter) {
  QPen pen(QColor(0x9C, 0xCC, 0x65), 11, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  QPainterPath path(QPointF(16, 56));
  path.lineTo(16, 24);
  path.arcTo(QRectF(16, 9, 32, 30), 180, -180);
  path.lineTo(48, 56);
  painter.drawPath(path);
  painter.setPen(QPen(QColor(0x00, 0x3C, 0x8C), 2.5, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(path);
}

void DrawVehicle(QPainter& painter) {
  painter.setPen(QPen(Qt::white, 3, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(39, 44), QPointF(57, 44));
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::white);
  painter.drawPolygon(QPolygonF({{48, 56}, {43, 46}, {53, 46}}));
}

}  // namespace

void DrawLogo(QPainter& painter, const QRectF& place) {
  const double side = std::min(place.width(), place.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(place.center() - QPointF(side, side) / 2);
  painter.scale(side / kSide, side / kSide);
  DrawField(painter);
  DrawSwaths(painter);
  DrawVehicle(painter);
  painter.restore();
}

QIcon LogoIcon() {
  QIcon icon;
  for (const int side : {16, 32, 48, 128}) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    DrawLogo(painter, QRectF(0, 0, side, side));
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace kestrin::widgets
