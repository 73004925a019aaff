#include <windows.h>

#include "base/nameKey.h"
#include "base/nativePath.h"

namespace kestrin::base {

// Names that differ in the case of their letters alone are one name here.
std::string NameKey(const std::string& name) {
  const auto wide = NativePath(name);
  if (!wide || wide->empty()) return name;
  const int size = static_cast<int>(wide->size());
  std::wstring upper(wide->size(), L'\0');
  LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, wide->data(), size, upper.data(), size,
                nullptr, nullptr, 0);
  return Utf8Text(upper);
}

}  // namespace kestrin::base
