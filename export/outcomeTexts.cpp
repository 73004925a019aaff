#include "export/outcomeTexts.h"

#include <new>

namespace kestrin::exports {

std::string NotMadeText(std::string_view kind, const std::exception& error) {
  const bool noMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
  return "No " + std::string(kind) + " set made: " + (noMemory ? "out of memory" : error.what());
}

std::string NotWrittenText(const base::FileError& error) {
  return "Error writing: " + error.Path() + ": " + error.Reason();
}

std::string NotReadToEndText(const ExportOutcome& outcome, std::int64_t total) {
  std::string held = "no set made";
  if (outcome.made) {
    const bool known = total > 0 && total >= outcome.epochs;
    held = "the set holds " + std::to_string(outcome.epochs) +
           (known ? " of " + std::to_string(total) + " epochs" : " epochs of an unknown number");
  }
  return std::string(kNotReadToEnd) + held + ", code " + std::to_string(outcome.lastStep);
}

}  // namespace kestrin::exports
