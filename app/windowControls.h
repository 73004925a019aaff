#pragma once

#include <QHash>
#include <QWidget>

#include "app/flow/controls.h"

namespace kestrin {

/// The window's controls and timers by name, for its procedures. Widths are window
/// pixels.
class WindowControls final : public Controls {
 public:
  /// The window has all its controls and timers already and outlives this object.
  explicit WindowControls(QWidget& window);

  void SetEnabled(ControlId id, bool enabled) override;
  void SetVisible(ControlId id, bool visible) override;
  void SetCaption(ControlId id, const std::string& caption) override;
  std::string Caption(ControlId id) const override;
  void SetBackColor(ControlId id, std::uint32_t bgr) override;
  void SetWidth(ControlId id, double width) override;
  double Width(ControlId id) const override;
  int SelectedOption1() const override;
  void SelectOption1(int index) override;

 private:
  template <class Type>
  Type* As(ControlId id) const;

  QHash<QString, QObject*> byName_;
};

}  // namespace kestrin
