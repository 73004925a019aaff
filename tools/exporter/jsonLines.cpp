#include "tools/exporter/jsonLines.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "export/setNames.h"
#include "tools/exporter/reasons.h"
#include "tools/exporter/report.h"

namespace kestrin::exporter {
namespace {

using Json = nlohmann::ordered_json;

Json Begun(const char* type) { return {{"version", kJsonVersion}, {"type", type}}; }

void AddJob(Json& line, const std::string& path) {
  line["job"] = path;
  line["name"] = exports::JobNameOf(path).name;
}

/// JSON has no infinity, which the ground of a forged job can come to.
void AddFigure(Json& line, std::string_view name, double value) {
  if (std::isfinite(value)) line[std::string(name)] = value;
}

std::string Line(const Json& line) {
  return line.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

std::string JsonLine(const MadeSet& set) {
  Json line = Begun("set");
  AddJob(line, set.jobPath);
  line["kind"] = set.kind;
  line["path"] = set.path;
  line["epochs"] = set.outcome.epochs;
  line["complete"] = set.outcome.lastStep == jobstore::kDone;
  for (const exports::Figure& figure : set.outcome.figures) {
    AddFigure(line, figure.name, figure.value);
  }
  return Line(line);
}

std::string JsonLine(const JobSummary& summary) {
  Json line = Begun("summary");
  AddJob(line, summary.jobPath);
  if (summary.epochs > 0) {
    line["first"] = summary.first.iso;
    line["newest"] = summary.newest.iso;
  }
  line["epochs"] = summary.epochs;
  line["complete"] = summary.complete;
  if (summary.metres) AddFigure(line, "meters", *summary.metres);
  if (summary.acres) AddFigure(line, "acres", *summary.acres);
  line["format"] = summary.format;
  line["products"] = summary.products;
  return Line(line);
}

std::string JsonLine(const Failure& failure) {
  Json line = Begun("failure");
  if (failure.isFolder) {
    line["folder"] = failure.path;
  } else {
    AddJob(line, failure.path);
    line["kinds"] = failure.kinds;
  }
  line["message"] = failure.text;
  const Reason reason = ReasonIn(failure.text, failure.path);
  if (reason.code) line["code"] = *reason.code;
  if (!reason.words.empty()) line["reason"] = reason.words;
  return Line(line);
}

}  // namespace kestrin::exporter
