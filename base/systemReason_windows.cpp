#include <windows.h>

#include "base/systemReason.h"

namespace kestrin::base {

std::string ReasonOf(std::uint32_t code) {
  wchar_t wide[512];
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  const DWORD length = FormatMessageW(kFlags, nullptr, code, 0, wide, 512, nullptr);
  char bytes[2048];
  const int size = WideCharToMultiByte(CP_UTF8, 0, wide, static_cast<int>(length), bytes,
                                       sizeof bytes, nullptr, nullptr);
  std::string reason(bytes, static_cast<std::size_t>(size));
  reason.erase(reason.find_last_not_of(" .\r\n") + 1);
  return reason.empty() ? "Error " + std::to_string(code) : reason;
}

}  // namespace kestrin::base
