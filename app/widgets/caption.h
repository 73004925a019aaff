#pragma once

#include <QColor>
#include <QLabel>
#include <optional>

namespace kestrin::widgets {

/// A one-line label: plain text, narrowed rather than cut off where it is a little
/// too wide for its place, and shortened in the middle where it is far too wide. The
/// whole of a shortened text is in a tool tip.
class Caption : public QLabel {
  Q_OBJECT

 public:
  explicit Caption(QWidget* parent);

  /// What the label is about, in words; spoken before its text.
  void SetPurpose(const QString& purpose);
  void SetText(const QString& text);
  void SetBorder(bool border) { border_ = border; }
  void SetColour(std::optional<QColor> colour) { colour_ = colour; }

  /// The font the text is painted in, narrowed if need be.
  QFont ShownFont() const;
  /// The text as painted; the whole text unless it had to be shortened.
  QString ShownText() const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect Inside() const;
  void Describe();

  QString purpose_;
  std::optional<QColor> colour_;
  bool border_ = false;
};

}  // namespace kestrin::widgets
