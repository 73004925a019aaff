#pragma once

#include "app/flow/ports.h"

namespace kestrin::window {

/// Dates as the user's desktop writes them. Short dates always show the century:
/// the zero date must not read as 1999.
class LocaleDates final : public flow::DateStyle {
 public:
  /// The names that exports without a window use too: both find the same folders.
  geo::MonthNames AbbreviatedMonths() override;
  std::string ShortDate(std::chrono::year_month_day date) override;
};

}  // namespace kestrin::window
