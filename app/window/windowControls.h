#pragma once

#include <QHash>
#include <QWidget>

#include "app/flow/controls.h"

namespace kestrin::window {

/// The window's controls and timers by name, for its procedures. Widths are window
/// pixels.
class WindowControls final : public flow::Controls {
 public:
  /// The window has all its controls and timers already and outlives this object.
  explicit WindowControls(QWidget& window);

  void SetEnabled(flow::ControlId id, bool enabled) override;
  void SetVisible(flow::ControlId id, bool visible) override;
  void SetCaption(flow::ControlId id, const std::string& caption) override;
  std::string Caption(flow::ControlId id) const override;
  void SetBackColor(flow::ControlId id, flow::Background background) override;
  void SetWidth(flow::ControlId id, double width) override;
  double Width(flow::ControlId id) const override;
  int SelectedPreviewKind() const override;
  void SelectPreviewKind(int index) override;

 private:
  template <class Type>
  Type* As(flow::ControlId id) const;

  QHash<QString, QObject*> byName_;
};

}  // namespace kestrin::window
