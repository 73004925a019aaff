#include "base/nativePath.h"

#include <windows.h>

#include <algorithm>

namespace kestrin::base {
namespace {

/// From this length on folders meet the limit; files 12 characters later, which leaves
/// room for what a library adds to a file's name.
constexpr std::size_t kUsualLimit = 248;
constexpr std::wstring_view kMarked = LR"(\\?\)";
constexpr std::wstring_view kMarkedNetwork = LR"(\\?\UNC\)";

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

}  // namespace

std::string Utf8Text(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  std::string utf8(text.size() * 3, '\0');
  utf8.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(),
                          static_cast<int>(utf8.size()), nullptr, nullptr)));
  return utf8;
}

std::wstring AbsolutePath(const std::wstring& path) {
  std::wstring whole(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  const DWORD length =
      GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
  whole.resize(length);
  return whole;
}

std::optional<std::wstring> NativePath(const std::string& path) {
  auto wide = Wide(path);
  if (!wide || wide->starts_with(kMarked)) return wide;
  // A short name can be that of a file deep below the current folder.
  const std::wstring whole = AbsolutePath(*wide);
  if (std::max(wide->size(), whole.size()) < kUsualLimit) return wide;
  if (whole.starts_with(LR"(\\)")) return std::wstring(kMarkedNetwork) + whole.substr(2);
  return std::wstring(kMarked) + whole;
}

std::wstring UsualPath(const std::wstring& path) {
  std::wstring usual = path;
  if (path.starts_with(kMarkedNetwork)) {
    usual = LR"(\\)" + path.substr(kMarkedNetwork.size());
  } else if (path.starts_with(kMarked)) {
    usual = path.substr(kMarked.size());
  }
  // Names with a dot or a blank at their end, and those of devices, mean something else
  // without the mark.
  const bool same = usual.size() < kUsualLimit && AbsolutePath(usual) == usual;
  return same ? usual : path;
}

}  // namespace kestrin::base
