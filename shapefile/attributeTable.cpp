#include "shapefile/attributeTable.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <ctime>

#include "base/byteOrder.h"

namespace kestrin::shapefile {
namespace {

constexpr std::size_t kHeadSize = 32;
constexpr std::size_t kDescriptorSize = 32;
constexpr std::size_t kFieldNameSize = 11;
constexpr char kHeaderEnd = 0x0D;

constexpr std::size_t kNameSize = 10;

void PutDescriptor(char* out, const Field& field) {
  std::copy_n(field.name.begin(), std::min(field.name.size(), kFieldNameSize), out);
  out[11] = field.type;
  out[16] = static_cast<char>(field.width);
  out[17] = static_cast<char>(field.decimals);
}

bool Continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// Bytes of the UTF-8 character that a byte begins; 1 for a byte that begins none.
std::size_t CharacterSize(char first) {
  const auto byte = static_cast<unsigned char>(first);
  if (byte >= 0xC2 && byte <= 0xDF) return 2;
  if (byte >= 0xE0 && byte <= 0xEF) return 3;
  if (byte >= 0xF0 && byte <= 0xF4) return 4;
  return 1;
}

/// Whether a whole UTF-8 character of several bytes stands at `at`.
bool HasCharacter(std::string_view text, std::size_t at, std::size_t size) {
  if (text.size() - at < size) return false;
  const std::string_view rest = text.substr(at + 1, size - 1);
  return std::all_of(rest.begin(), rest.end(), Continues);
}

}  // namespace

CalendarDate Today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::string TableHeader(std::span<const Field> fields, CalendarDate date,
                        std::uint32_t recordCount) {
  const std::size_t size = kHeadSize + kDescriptorSize * fields.size() + 1;
  std::string header(size, '\0');
  header[0] = 3;
  header[1] = static_cast<char>(date.year - 1900);
  header[2] = static_cast<char>(date.month);
  header[3] = static_cast<char>(date.day);
  char* out = base::PutLe32(&header[4], recordCount);
  out = base::PutLe16(out, static_cast<std::uint32_t>(size));
  base::PutLe16(out, static_cast<std::uint32_t>(RecordLength(fields)));
  std::size_t at = kHeadSize;
  for (const Field& field : fields) {
    PutDescriptor(&header[at], field);
    at += kDescriptorSize;
  }
  header.back() = kHeaderEnd;
  return header;
}

std::size_t RecordLength(std::span<const Field> fields) {
  std::size_t length = 1;
  for (const Field& field : fields) length += static_cast<std::size_t>(field.width);
  return length;
}

AttributeRecord::AttributeRecord(std::span<const Field> fields)
    : bytes_(RecordLength(fields), ' ') {
  widths_.reserve(fields.size());
  for (const Field& field : fields) widths_.push_back(field.width);
}

void AttributeRecord::GoTo(std::size_t field) {
  assert(field <= widths_.size());
  Clear();
  while (field_ < field) end_ += static_cast<std::size_t>(widths_[field_++]);
}

void AttributeRecord::Begin(std::string_view bytes) {
  assert(bytes.size() <= bytes_.size());
  // By pointers: from a view to a vector the library copies byte by byte.
  std::copy_n(bytes.data(), bytes.size(), bytes_.data());
}

void AttributeRecord::Add(std::string_view text, Keep keep) {
  assert(field_ < widths_.size());
  const auto width = static_cast<std::size_t>(widths_[field_++]);
  if (text.size() > width) {
    text = keep == Keep::kLeft ? text.substr(0, width) : text.substr(text.size() - width);
  }
  const std::size_t blanks = width - text.size();
  std::memset(bytes_.data() + end_, ' ', blanks);
  if (!text.empty()) std::memcpy(bytes_.data() + end_ + blanks, text.data(), text.size());
  end_ += width;
}

std::string_view NameText(std::string_view name) {
  if (name.size() <= kNameSize) return name;
  std::size_t last = kNameSize - 1;
  while (last > kNameSize - 4 && Continues(name[last])) --last;
  const std::size_t size = CharacterSize(name[last]);
  const bool cut = last + size > kNameSize && HasCharacter(name, last, size);
  return name.substr(0, cut ? last : kNameSize);
}

}  // namespace kestrin::shapefile
