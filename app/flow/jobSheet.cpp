#include "app/flow/jobSheet.h"

#include <chrono>
#include <exception>

namespace kestrin::flow {
namespace {

template <class Step>
void Try(Step step) {
  try {
    step();
  } catch (const std::exception&) {
    // A sheet is printed with what can be had.
  }
}

std::chrono::year_month_day DateOf(geo::LocalDateTime time) {
  return std::chrono::year_month_day(std::chrono::floor<std::chrono::days>(time));
}

}  // namespace

void PrintJobSheet(const WindowState& state, const Ports& ports) {
  JobSheet& sheet = ports.sheet;
  Try([&] { sheet.Load(); });
  Try([&] { sheet.ClearPicture(); });
  Try([&] { sheet.CopyPreviewPicture(); });
  Try([&] { sheet.SetJobName(ports.controls.Caption({Control::kJobName})); });
  Try([&] { sheet.SetLastModified(ports.dates.ShortDate(DateOf(state.lastGpsTime))); });
  Try([&] { ports.picture.Refresh(); });
  Try([&] { sheet.Print(); });
  Try([&] { sheet.Unload(); });
}

}  // namespace kestrin::flow
