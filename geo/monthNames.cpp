#include "geo/monthNames.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <string_view>
#endif

namespace kestrin {
namespace {

const MonthNames kEnglish{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

#ifdef _WIN32

std::string NameOf(int month) {
  wchar_t wide[80];
  const int length = GetLocaleInfoW(
      LOCALE_USER_DEFAULT, static_cast<LCTYPE>(LOCALE_SABBREVMONTHNAME1 + month), wide, 80);
  char bytes[320];
  if (length == 0 ||
      WideCharToMultiByte(CP_UTF8, 0, wide, length, bytes, sizeof bytes, nullptr, nullptr) == 0) {
    return {};
  }
  return bytes;
}

}  // namespace

MonthNames UserMonthNames() {
  MonthNames names = kEnglish;
  for (int month = 0; month < 12; ++month) {
    const std::string name = NameOf(month);
    if (!name.empty()) names[static_cast<std::size_t>(month)] = name;
  }
  return names;
}

#else

constexpr nl_item kItems[] = {ABMON_1, ABMON_2, ABMON_3, ABMON_4,  ABMON_5,  ABMON_6,
                              ABMON_7, ABMON_8, ABMON_9, ABMON_10, ABMON_11, ABMON_12};

}  // namespace

MonthNames UserMonthNames() {
  MonthNames names = kEnglish;
  const locale_t user = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
  if (user == nullptr) return names;
  for (std::size_t month = 0; month < names.size(); ++month) {
    std::string_view name = nl_langinfo_l(kItems[month], user);
    // Some languages' names come padded to one width, which no file name should be.
    name.remove_prefix(std::min(name.find_first_not_of(' '), name.size()));
    if (!name.empty()) names[month] = name;
  }
  freelocale(user);
  return names;
}

#endif

}  // namespace kestrin
