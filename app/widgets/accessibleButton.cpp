#include "app/widgets/accessibleButton.h"

#include <QAccessibleWidget>

#include "app/widgets/buttons.h"
#include "app/widgets/frame.h"
#include "app/widgets/pictureBox.h"
#include "app/widgets/shapes.h"

namespace kestrin::widgets {

namespace {

class AccessibleButton : public QAccessibleWidget {
 public:
  AccessibleButton(QAbstractButton* button, QAccessible::Role role)
      : QAccessibleWidget(button, role), button_(button) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button_->isCheckable();
    state.checked = button_->isChecked();
    state.pressed = button_->isDown();
    if (!InputReaches(*button_)) state.disabled = true;
    return state;
  }

  QStringList actionNames() const override {
    if (state().disabled) return {};
    return {button_->isCheckable() ? toggleAction() : pressAction(), setFocusAction()};
  }

  void doAction(const QString& action) override {
    if (action == pressAction() || action == toggleAction())
      button_->click();
    else
      QAccessibleWidget::doAction(action);
  }

 private:
  QAbstractButton* button_;
};

/// What readers are told of a widget that Qt would call mere filling.
QAccessible::Role RoleOf(const QString& type, const QWidget* widget) {
  if (qobject_cast<const Frame*>(widget) != nullptr) return QAccessible::Grouping;
  if (qobject_cast<const PictureBox*>(widget) != nullptr) return QAccessible::Graphic;
  if (qobject_cast<const LogoView*>(widget) != nullptr) return QAccessible::Graphic;
  if (type == "QWidget" && widget->isWindow()) return QAccessible::Window;
  return QAccessible::NoRole;
}

QAccessibleInterface* MakeAccessible(const QString& type, QObject* object) {
  if (auto* button = qobject_cast<GraphicalButton*>(object)) {
    return new AccessibleButton(button, QAccessible::PushButton);
  }
  if (auto* option = qobject_cast<OptionButton*>(object)) {
    return new AccessibleButton(option, QAccessible::RadioButton);
  }
  auto* widget = qobject_cast<QWidget*>(object);
  const QAccessible::Role role = widget == nullptr ? QAccessible::NoRole : RoleOf(type, widget);
  return role == QAccessible::NoRole ? nullptr : new QAccessibleWidget(widget, role);
}

}  // namespace

void InstallAccessibleButtons() { QAccessible::installFactory(MakeAccessible); }

}  // namespace kestrin::widgets
