#include <windows.h>

#include "geo/systemMonthNames.h"

namespace kestrin::geo {
namespace {

std::string NameOf(std::size_t month) {
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

MonthNames SystemMonthNames() {
  MonthNames names;
  for (std::size_t month = 0; month < names.size(); ++month) names[month] = NameOf(month);
  return names;
}

}  // namespace kestrin::geo
