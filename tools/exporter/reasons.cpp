#include "tools/exporter/reasons.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <string_view>

#include "base/fileSystem.h"
#include "export/exportRun.h"
#include "export/outcomeTexts.h"

namespace kestrin::exporter {
namespace {

struct Meaning {
  int code;  // of the database library, without sign
  std::string_view words;
};
constexpr std::array kMeanings = std::to_array<Meaning>({
    {1, "it lacks a table or column of a job"},
    {5, "another program keeps it locked"},
    {7, "out of memory"},
    {9, "more work than an honest job of its size asks for"},
    {10, "the disk or stick cannot be read"},
    {11, "the file is damaged or cut short"},
    {13, "the temporary folder is full"},
    {18, "a text longer than any of a job"},
    {23, "it asks for what no job may do"},
    {26, "not a database"},
});
constexpr int kCannotOpen = 14;

std::string WordsOf(int code, const std::string& jobPath) {
  if (code == kCannotOpen) {
    try {
      return base::NativeFileSystem()->Exists(jobPath) ? "it may not be read" : "no such file";
    } catch (const base::FileError& error) {
      return error.Reason();
    }
  }
  for (const Meaning& meaning : kMeanings) {
    if (meaning.code == code) return std::string(meaning.words);
  }
  return {};
}

bool EndsInACode(std::string_view text) {
  return text.starts_with(exports::kNotOpened) || text.starts_with(exports::kNotPrepared) ||
         text.starts_with(exports::kNotReadToEnd);
}

}  // namespace

Reason ReasonIn(const std::string& text, const std::string& jobPath) {
  Reason reason;
  if (!EndsInACode(text)) return reason;
  int code = 0;
  const char* const end = text.data() + text.size();
  const char* const number = text.data() + text.rfind(' ') + 1;
  if (std::from_chars(number, end, code).ptr != end) return reason;
  reason.code = code;
  // A statement's own number, which one text has always shown, is above 0.
  const bool isStatement = code > 0 && text.starts_with(exports::kNotPrepared);
  if (!isStatement) reason.words = WordsOf(std::abs(code), jobPath);
  return reason;
}

std::string WithReason(const std::string& text, const std::string& jobPath) {
  const std::string words = ReasonIn(text, jobPath).words;
  return words.empty() ? text : text + " (" + words + ")";
}

}  // namespace kestrin::exporter
