#pragma once

#include <cmath>
#include <string>

#include "tests/support/shapeReader.h"

namespace kestrin::exporter {

/// A number of at most two decimals as JSON shows a double: whole ones end in ".0".
inline std::string JsonNumber(const std::string& text) {
  const std::string number = test::Trimmed(text);
  return number.find('.') == std::string::npos ? number + ".0" : number;
}

/// The second column of a set's table, added up in hundredths, with no more decimals than it
/// takes.
inline std::string ShownSum(const std::string& basePath) {
  long long hundredths = 0;
  for (const auto& row : test::ReadShapeSet(basePath).rows) {
    hundredths += std::llround(std::stod(row[1]) * 100);
  }
  std::string text =
      std::to_string(hundredths / 100) + "." + std::to_string(hundredths % 100 + 100).substr(1);
  if (text.back() == '0') text.pop_back();
  return text;
}

}  // namespace kestrin::exporter
