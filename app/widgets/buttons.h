#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QRadioButton>
#include <optional>

namespace kestrin::widgets {

/// Lets Enter and the keypad's Enter press a button as the space bar does, and decides which
/// clicks on it count: those that found its frames open, both when the button was pressed and
/// when it was let go. Whoever made the click, a mouse, a key, an assistive tool or a call, is
/// judged alike.
class ClickGuard : public QObject {
 public:
  explicit ClickGuard(QAbstractButton& button);

  /// To be asked when the click arrives.
  bool Accepts() const;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAbstractButton& button_;
  bool pressedInReach_ = true;
};

/// A push button whose background can be set.
class GraphicalButton : public QAbstractButton {
  Q_OBJECT

 public:
  GraphicalButton(const QString& caption, QWidget* parent);

  /// No colour: the desktop's own button face.
  void SetBackground(std::optional<QColor> colour);
  std::optional<QColor> Background() const { return background_; }

  /// What is painted behind and as the caption now.
  QColor ShownBackground() const;
  QColor ShownText() const;

 signals:
  /// A click that counts.
  void Chosen();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<QColor> background_;
  ClickGuard guard_;
};

/// One of the option buttons that share a frame.
class OptionButton : public QRadioButton {
  Q_OBJECT

 public:
  OptionButton(const QString& caption, QWidget* parent);

  /// Makes Tab enter the options in `group`, if any, at the checked one, where there is
  /// one: from any other the arrow keys choose nothing. They see to it themselves when one
  /// takes the focus; whoever checks one or sets focus policies otherwise sees to it then.
  static void PutTabStop(const QWidget& group);

 signals:
  /// A click that counts.
  void Chosen();

 protected:
  void nextCheckState() override;
  void focusInEvent(QFocusEvent* event) override;
  /// A disabled caption can still be read, which not every desktop sees to.
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  ClickGuard guard_;
};

}  // namespace kestrin::widgets
