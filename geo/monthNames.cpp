#include "geo/monthNames.h"

#include <algorithm>
#include <string_view>

#include "geo/systemMonthNames.h"

namespace kestrin::geo {

MonthNames UserMonthNames() {
  MonthNames names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const MonthNames user = SystemMonthNames();
  for (std::size_t month = 0; month < names.size(); ++month) {
    std::string_view name = user[month];
    // Some languages' names come padded to one width, which no file name should be.
    name.remove_prefix(std::min(name.find_first_not_of(' '), name.size()));
    if (!name.empty()) names[month] = name;
  }
  return names;
}

}  // namespace kestrin::geo
