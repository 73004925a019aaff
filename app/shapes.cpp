#include "app/shapes.h"

#include <QPainter>

#include "app/colours.h"
#include "app/logo.h"

namespace kestrin {

FilledShape::FilledShape(const QColor& colour, QWidget* parent) : QWidget(parent), colour_(colour) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void FilledShape::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), Readable(colour_, palette().color(QPalette::Window)));
}

void LogoView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawLogo(painter, rect());
}

}  // namespace kestrin
