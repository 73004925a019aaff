#pragma once

#include <QHash>
#include <QPointer>
#include <QWidget>

namespace kestrin::widgets {

/// A frame with an etched border and a caption, and the gate in front of what it
/// holds. While the gate is closed no mouse, key, shortcut, focus or accessibility
/// action reaches a control inside, but nothing inside looks disabled: how a
/// control looks is its own business. The wheel, which none of them takes, passes to
/// what scrolls the frame.
class Frame : public QWidget {
  Q_OBJECT

 public:
  Frame(QString caption, QWidget* parent);

  /// Closes or opens the gate. Its focus comes back when it opens again.
  void SetInputEnabled(bool enabled);
  bool InputEnabled() const { return enabled_; }

  /// Closes the gate for as long as a procedure runs, whatever InputEnabled says.
  void SetBusy(bool busy);

  bool AcceptsInput() const { return enabled_ && !busy_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void childEvent(QChildEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Update(bool accepted);
  void TakeFocusAway();
  void GiveFocusBack();

  QString caption_;
  bool enabled_ = true;
  bool busy_ = false;
  QHash<QWidget*, Qt::FocusPolicy> policies_;
  QPointer<QWidget> focused_;
};

/// Whether every frame around the control lets input through.
bool InputReaches(const QWidget& control);

}  // namespace kestrin::widgets
