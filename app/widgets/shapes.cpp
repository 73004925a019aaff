#include "app/widgets/shapes.h"

#include <QPainter>

#include "app/widgets/borders.h"
#include "app/widgets/colours.h"
#include "app/widgets/logo.h"

namespace kestrin::widgets {

FilledShape::FilledShape(const QColor& colour, QWidget* parent) : QWidget(parent), colour_(colour) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void FilledShape::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), Readable(colour_, palette().color(QPalette::Window)));
}

void Line::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const double thickness = BorderWidth(painter);
  QRectF at = OnDevicePixels(painter, rect());
  if (width() > height()) {
    at.setHeight(thickness);
  } else {
    at.setWidth(thickness);
    // Where it ends another line begins in its last pixel, and is thinner than that.
    at.setBottom(OnDevicePixels(painter, QRectF(0, height() - 1, 1, 1)).top() + thickness);
  }
  painter.fillRect(at, Readable(kGrey, palette().color(QPalette::Window)));
}

void LogoView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawLogo(painter, rect());
}

}  // namespace kestrin::widgets
