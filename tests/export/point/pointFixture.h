#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "export/point/pointExport.h"
#include "tests/export/setFixture.h"

namespace kestrin::test {

inline constexpr double kAltitude = 300;

/// A job under construction and the point set made of it.
class PointFixture : public SetFixture {
 protected:
  /// Of a job with one reference location.
  PointFixture() : SetFixture(point::ExportPointShape, "job_POINT") {
    builder_.Reference({1, 0}, kLatitude, kLongitude, kAltitude);
  }

  static std::vector<std::string> FieldNames(const ReadSet& set) {
    std::vector<std::string> names;
    for (const ReadField& field : set.fields) names.push_back(field.name);
    return names;
  }

  /// The texts of a field in all rows, as they stand.
  static std::vector<std::string> Column(const ReadSet& set, const std::string& name) {
    const auto names = FieldNames(set);
    const auto place = std::find(names.begin(), names.end(), name);
    if (place == names.end()) throw std::runtime_error("no field " + name);
    std::vector<std::string> texts;
    for (const auto& row : set.rows) {
      texts.push_back(row[static_cast<std::size_t>(place - names.begin())]);
    }
    return texts;
  }

  /// The same without the blanks around them.
  static std::vector<std::string> TrimmedColumn(const ReadSet& set, const std::string& name) {
    std::vector<std::string> texts = Column(set, name);
    for (std::string& text : texts) text = Trimmed(text);
    return texts;
  }
};

}  // namespace kestrin::test
