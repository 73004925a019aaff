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
  std::string key(upper.size() * 4, '\0');
  const int length = WideCharToMultiByte(CP_UTF8, 0, upper.data(), size, key.data(),
                                         static_cast<int>(key.size()), nullptr, nullptr);
  key.resize(static_cast<std::size_t>(length));
  return key;
}

}  // namespace kestrin::base
