#include <windows.h>

#include <algorithm>
#include <random>

#include "base/nativePath.h"
#include "base/utf8Path.h"
#include "jobstore/opening/jobFile.h"

// The C library's calls, and the standard library's over them, know neither network paths
// nor marked ones, and take a file's size from its folder, which is told of it late.

namespace kestrin::opening {
namespace fs = std::filesystem;
namespace {

/// A file's properties, links followed; never in anybody's way. Folders are not opened.
class Properties {
 public:
  explicit Properties(const std::wstring& path)
      : handle_(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~Properties() {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
  }
  Properties(const Properties&) = delete;
  Properties& operator=(const Properties&) = delete;

  bool IsFile() const {
    return handle_ != INVALID_HANDLE_VALUE && GetFileType(handle_) == FILE_TYPE_DISK;
  }

  std::uintmax_t Size() const {
    LARGE_INTEGER size{};
    if (!IsFile() || !GetFileSizeEx(handle_, &size)) return 0;
    return static_cast<std::uintmax_t>(size.QuadPart);
  }

  std::int64_t Written() const {
    FILETIME time{};
    if (!IsFile() || !GetFileTime(handle_, nullptr, nullptr, &time)) return 0;
    return (std::int64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime;
  }

  /// Marked as a long one; empty where the drive cannot tell.
  std::wstring FinalPath() const {
    std::wstring path(GetFinalPathNameByHandleW(handle_, nullptr, 0, 0), L'\0');
    const DWORD length =
        GetFinalPathNameByHandleW(handle_, path.data(), static_cast<DWORD>(path.size()), 0);
    path.resize(std::min<std::size_t>(length, path.size()));
    return path;
  }

 private:
  HANDLE handle_;
};

}  // namespace

fs::path JobFile(const std::string& path) {
  const auto native = base::NativePath(path);
  if (!native || native->empty()) return {};
  const std::wstring whole = base::AbsolutePath(*native);
  // A serial line or a pipe notices that it is opened.
  if (whole.starts_with(LR"(\\.\)")) return {};
  const Properties job(whole);
  if (!job.IsFile()) return {};
  // Not every drive can tell, or tells right.
  const std::wstring final = base::UsualPath(job.FinalPath());
  return Properties(final).IsFile() ? final : whole;
}

std::string LibraryText(const fs::path& path) {
  std::string text = base::Utf8Of(path);
  // A marked path is taken to the letter.
  if (!text.starts_with(R"(\\?\)")) std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

std::uintmax_t SizeOf(const fs::path& file) { return Properties(file.native()).Size(); }

std::int64_t WrittenAt(const fs::path& file) { return Properties(file.native()).Written(); }

bool CopyTo(const fs::path& from, const fs::path& to, std::error_code& error) {
  if (CopyFileW(from.c_str(), to.c_str(), TRUE)) {
    error.clear();
    return true;
  }
  error.assign(static_cast<int>(GetLastError()), std::system_category());
  return false;
}

// The temporary folder is the user's own here.
fs::path MakeOwnFolder(const fs::path& root, const std::string& begin, std::error_code& error) {
  std::random_device random;
  for (int attempt = 0; attempt < 100; ++attempt) {
    fs::path folder = root / (begin + std::to_string(random()));
    if (fs::create_directory(folder, error)) return folder;
    if (error) return {};
  }
  error = std::make_error_code(std::errc::file_exists);
  return {};
}

std::shared_ptr<const void> UseFolder(const fs::path& folder) {
  const HANDLE use =
      CreateFileW((folder / "in-use").c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (use == INVALID_HANDLE_VALUE) return {};
  return {use, CloseHandle};
}

void RemoveUnused(const fs::path& folder) {
  // A folder in use, from here on as well, cannot be given another name.
  if (!UseFolder(folder)) return;
  fs::path gone = folder;
  gone += ".gone";
  std::error_code error;
  fs::rename(folder, gone, error);
  if (!error) fs::remove_all(gone, error);
}

}  // namespace kestrin::opening
