#pragma once

#include <QColor>
#include <QWidget>

namespace kestrin::widgets {

/// A filled rectangle: the fill of a progress bar, whose width is its state. A
/// line is a rectangle one pixel thick.
class FilledShape : public QWidget {
  Q_OBJECT

 public:
  FilledShape(const QColor& colour, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
};

/// The program's picture.
class LogoView : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace kestrin::widgets
