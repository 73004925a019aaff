#pragma once

#include <QColor>
#include <QWidget>

namespace kestrin::widgets {

/// A filled rectangle: the fill of a progress bar, whose width is its state.
class FilledShape : public QWidget {
  Q_OBJECT

 public:
  FilledShape(const QColor& colour, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
};

/// A grey line along the longer side of its place, as thick as the borders.
class Line : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
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
