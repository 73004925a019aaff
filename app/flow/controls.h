#pragma once

#include <cstdint>
#include <string>

namespace kestrin::flow {

/// The window's controls, timers included, by their names.
enum class Control {
  kFrame1,
  kFrame2,
  kFrame4,
  kCommand1,
  kCommand2,
  kCommand3,
  kCommand4,
  kOption1,
  kPicture1,
  kLabel1,
  kLabel4,
  kLabel5,
  kLabel7,
  kLabel8,
  kLabel9,
  kLabel10,
  kShape1,
  kShape2,
  kTimer2,
  kTimerPreview,
  kTimerShape,
};

/// A control, or one of an array of controls (Command1, Option1, Label1).
struct ControlId {
  static constexpr int kNoIndex = -1;

  Control control;
  int index = kNoIndex;

  friend bool operator==(const ControlId&, const ControlId&) = default;
};

/// The control's name, with its index behind "_" in an array: "Command1_2".
std::string NameOf(ControlId id);

/// The window's controls as the procedures see them. None of these calls runs a
/// click handler or lets events run.
class Controls {
 public:
  virtual ~Controls() = default;

  /// A timer that is enabled ticks. A disabled frame takes no input for anything it
  /// holds but leaves its look.
  virtual void SetEnabled(ControlId id, bool enabled) = 0;
  virtual void SetVisible(ControlId id, bool visible) = 0;
  virtual void SetCaption(ControlId id, const std::string& caption) = 0;
  virtual std::string Caption(ControlId id) const = 0;

  /// BGR, or kButtonFace (app/flow/commandColours.h).
  virtual void SetBackColor(ControlId id, std::uint32_t bgr) = 0;

  /// In the units the window lays out in, whatever they are.
  virtual void SetWidth(ControlId id, double width) = 0;
  virtual double Width(ControlId id) const = 0;

  /// Index of the selected Option1, or -1.
  virtual int SelectedOption1() const = 0;

  /// Selects an Option1 without running its click handler.
  virtual void SelectOption1(int index) = 0;
};

}  // namespace kestrin::flow
