#include "export/nativePath.h"

#include <windows.h>

namespace kestrin {
namespace {

/// From this length on folders meet the limit; files 12 characters later.
constexpr std::size_t kUsualLimit = 248;

std::optional<std::wstring> Wide(const std::string& text) {
  const int size = static_cast<int>(text.size());
  if (size == 0) return std::wstring();
  const int length =
      MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, nullptr, 0);
  if (length == 0) return std::nullopt;
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), length);
  return wide;
}

std::wstring Absolute(const std::wstring& path) {
  std::wstring whole(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  const DWORD length =
      GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
  whole.resize(length);
  return whole;
}

}  // namespace

std::optional<std::wstring> NativePath(const std::string& path) {
  auto wide = Wide(path);
  if (!wide || wide->empty() || wide->starts_with(LR"(\\?\)")) return wide;
  // The limit is on the whole path, however little of it is said.
  const std::wstring whole = Absolute(*wide);
  if (whole.size() < kUsualLimit) return wide;
  if (whole.starts_with(LR"(\\)")) return LR"(\\?\UNC\)" + whole.substr(2);
  return LR"(\\?\)" + whole;
}

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

}  // namespace kestrin
