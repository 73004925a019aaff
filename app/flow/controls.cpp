#include "app/flow/controls.h"

#include <iterator>

namespace kestrin::flow {
namespace {

// In the enumeration's order.
constexpr const char* kNames[]{
    "Frame1",  "Frame2",   "Frame4", "Command1", "Command2", "Command3",     "Command4",
    "Option1", "Picture1", "Label1", "Label4",   "Label5",   "Label7",       "Label8",
    "Label9",  "Label10",  "Shape1", "Shape2",   "Timer2",   "TimerPreview", "TimerShape",
};
static_assert(std::size(kNames) == static_cast<std::size_t>(Control::kExportTimer) + 1);

}  // namespace

std::string NameOf(ControlId id) {
  std::string name = kNames[static_cast<std::size_t>(id.control)];
  if (id.index != ControlId::kNoIndex) name += "_" + std::to_string(id.index);
  return name;
}

}  // namespace kestrin::flow
