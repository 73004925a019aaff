#include <langinfo.h>
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is in no other

#include "geo/systemMonthNames.h"

namespace kestrin::geo {
namespace {

constexpr nl_item kItems[] = {ABMON_1, ABMON_2, ABMON_3, ABMON_4,  ABMON_5,  ABMON_6,
                              ABMON_7, ABMON_8, ABMON_9, ABMON_10, ABMON_11, ABMON_12};

}  // namespace

MonthNames SystemMonthNames() {
  MonthNames names;
  const locale_t user = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
  if (user == nullptr) return names;
  for (std::size_t month = 0; month < names.size(); ++month) {
    names[month] = nl_langinfo_l(kItems[month], user);
  }
  freelocale(user);
  return names;
}

}  // namespace kestrin::geo
