#pragma once

#include <string>

namespace kestrin::flow {

/// The window's controls that its procedures touch, timers included. The objects of
/// the window bear names of their own (NameOf).
enum class Control {
  kJobFrame,
  kExportFrame,
  kPreviewFrame,
  kExport,  ///< array: the button of each kind
  kCreateAll,
  kSelect,
  kPrint,
  kPreviewKind,  ///< array: the option button of each kind
  kPreview,
  kSetState,  ///< array: the text under each kind's export button
  kVersion,
  kJobName,
  kPreviewTrack,
  kPreviewCaption,
  kExportTrack,
  kExportCaption,
  kPreviewBar,
  kExportBar,
  kCreateAllTimer,  ///< gives "CREATE ALL" its ordinary background back
  kPreviewTimer,
  kExportTimer,
};

/// A control, or one of an array of controls.
struct ControlId {
  static constexpr int kNoIndex = -1;

  Control control{};
  int index = kNoIndex;
};

/// The name of the window's object, with its index behind "_" in an array:
/// "Command1_2".
std::string NameOf(ControlId id);

/// What a button's background says.
enum class Background {
  kButtonFace,  ///< nothing: the desktop's own colour
  kWorking,     ///< its action runs
  kSuccess,
  kFailure,
};

/// The window's controls as the procedures see them. None of these calls fails, runs a
/// click handler or lets events run; one that makes no sense for a control does
/// nothing.
class Controls {
 public:
  virtual ~Controls() = default;

  /// A timer that is enabled ticks. A disabled frame takes no input for anything it
  /// holds but leaves its look.
  virtual void SetEnabled(ControlId id, bool enabled) = 0;
  virtual void SetVisible(ControlId id, bool visible) = 0;
  virtual void SetCaption(ControlId id, const std::string& caption) = 0;
  virtual std::string Caption(ControlId id) const = 0;
  virtual void SetBackColor(ControlId id, Background background) = 0;

  /// In the units the window lays out in, whatever they are.
  virtual void SetWidth(ControlId id, double width) = 0;
  virtual double Width(ControlId id) const = 0;

  /// The kind of preview that is selected, or -1.
  virtual int SelectedPreviewKind() const = 0;

  /// Selects a kind of preview and draws nothing.
  virtual void SelectPreviewKind(int kind) = 0;
};

}  // namespace kestrin::flow
