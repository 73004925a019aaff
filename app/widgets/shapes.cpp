#include "app/widgets/shapes.h"

#include <QPainter>

#include "app/widgets/colours.h"
#include "app/widgets/logo.h"

namespace kestrin::widgets {

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

}  // namespace kestrin::widgets
