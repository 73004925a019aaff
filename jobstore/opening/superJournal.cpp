#include "jobstore/opening/superJournal.h"

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

#include "base/utf8Path.h"
#include "jobstore/opening/jobFile.h"

namespace kestrin::opening {
namespace {

/// The end of a journal that names a super-journal: page number, name, and then
/// name length, checksum and the journal mark, 4, 4 and 8 bytes.
constexpr std::size_t kPageNumber = 4;
constexpr std::size_t kTail = 16;
constexpr std::string_view kMark = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";

std::uint32_t BigEndian(std::string_view bytes) {
  std::uint32_t value = 0;
  for (const char byte : bytes) value = value << 8 | static_cast<unsigned char>(byte);
  return value;
}

std::string ReadAt(std::ifstream& file, std::uintmax_t offset, std::size_t size) {
  std::string bytes(size, '\0');
  file.seekg(static_cast<std::streamoff>(offset));
  if (!file.read(bytes.data(), static_cast<std::streamsize>(size))) return {};
  return bytes;
}

}  // namespace

void DropSuperJournal(const std::filesystem::path& journal) {
  std::error_code ignored;
  const std::uintmax_t size = SizeOf(journal);
  if (size < kTail + kPageNumber) return;
  std::ifstream file(journal, std::ios::binary);
  const std::string tail = ReadAt(file, size - kTail, kTail);
  if (tail.size() != kTail || std::string_view(tail).substr(8) != kMark) return;

  const std::uint32_t length = BigEndian(std::string_view(tail).substr(0, 4));
  const std::uintmax_t record = std::uintmax_t{length} + kTail + kPageNumber;
  constexpr std::uint32_t kLongestName = 4096;
  // A mark without a name before it is not taken for one by SQLite either, but a
  // cut mark is certain not to be.
  if (length == 0 || length > kLongestName || record > size) {
    file.close();
    std::filesystem::resize_file(journal, size - kMark.size(), ignored);
    return;
  }
  const std::string name = ReadAt(file, size - kTail - length, length);
  file.close();
  const bool stands = std::filesystem::exists(base::PathOf(name.c_str()), ignored);
  std::filesystem::resize_file(journal, stands ? size - record : 0, ignored);
}

}  // namespace kestrin::opening
