#pragma once

#include <QObject>
#include <QScrollBar>
#include <QWidget>

namespace kestrin::window {

/// Moves the content of a window that is smaller than it: by the two bars, by the wheel
/// over the content as over a bar, by Page Up, Page Down, Home and End (with Shift
/// sideways), and so that a control is in view once the keyboard or an assistive tool
/// gives it the focus. All within the bars' ranges.
///
/// A bar that does not show still moves the content where this is larger than the window:
/// which bar shows is not a question of what is cut off (flow/layout.h).
class Scrolling final : public QObject {
 public:
  /// The window has all its controls already, and outlives this object.
  explicit Scrolling(QWidget& window);

  /// Places the bars and the corner between them for the window's size.
  void LayOut();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Window pixels of the content that the bars leave in view.
  QSize View() const;
  /// Whether the bar shows, or would move something into view.
  bool Scrolls(const QScrollBar& bar) const;
  void ShowControl(const QWidget& control);
  bool TakesKey(const QKeyEvent& event);
  bool TakesWheel(QWheelEvent& event);

  QWidget& window_;
  QWidget& content_;
  QScrollBar& vertical_;
  QScrollBar& horizontal_;
  QWidget& corner_;
};

}  // namespace kestrin::window
