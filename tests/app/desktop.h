#pragma once

#include <map>
#include <string>
#include <vector>

#include "app/flow/ports.h"

namespace kestrin::test {

/// Drives laid out by a test.
class FakeDrives : public platform::Drives {
 public:
  std::vector<platform::Drive> List() override { return drives; }
  std::vector<std::string> FilesIn(const std::string& folder) override { return filesIn[folder]; }

  std::vector<platform::Drive> drives;
  std::map<std::string, std::vector<std::string>> filesIn;
};

/// English dates, whatever the desktop's language: "6/15/2006".
class EnglishDates : public flow::DateStyle {
 public:
  geo::MonthNames AbbreviatedMonths() override {
    return {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  }
  std::string ShortDate(std::chrono::year_month_day date) override {
    return std::to_string(unsigned{date.month()}) + '/' + std::to_string(unsigned{date.day()}) +
           '/' + std::to_string(static_cast<int>(date.year()));
  }
};

}  // namespace kestrin::test
