#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrin::shapefile {

/// A dBASE III field: name of at most 11 characters, "N" numeric or "C" text.
struct Field {
  std::string name;
  char type = 'N';
  int width = 0;
  int decimals = 0;
};

/// The day a table is said to be written on.
struct CalendarDate {
  int year = 0;
  int month = 0;
  int day = 0;
};

/// Today by the local clock.
CalendarDate Today();

/// Header length, descriptors and terminator of a table: everything before its
/// first record (dBASE III, docs/shapefiles.md).
std::string TableHeader(std::span<const Field> fields, CalendarDate date,
                        std::uint32_t recordCount);

/// Bytes of one record: the deletion mark and every field's width.
std::size_t RecordLength(std::span<const Field> fields);

/// Which end of a text longer than its field survives. The kinds differ, and
/// their readers depend on it.
enum class Keep { kLeft, kRight };

/// One record of a table, filled field by field in descriptor order. Texts are
/// right-justified, numbers and names alike; widths and texts are in bytes. Nothing here
/// fails: a text that is too long is cut.
class AttributeRecord {
 public:
  explicit AttributeRecord(std::span<const Field> fields);

  /// Back to the first field.
  void Clear() {
    field_ = 0;
    end_ = 1;
  }

  /// On to any field, counted from 0; the others keep their text.
  void GoTo(std::size_t field);

  /// Takes the first fields over from another record's Bytes(), of no more than these fields.
  void Begin(std::string_view bytes);

  /// Writes the next field.
  void Add(std::string_view text, Keep keep);

  /// The record as it stands in the table. All fields must have been added.
  std::string_view Bytes() const { return {bytes_.data(), bytes_.size()}; }

 private:
  std::vector<int> widths_;
  std::vector<char> bytes_;
  std::size_t field_ = 0;
  std::size_t end_ = 1;
};

/// A name as the tables show it: its first 10 bytes, less the bytes of a UTF-8
/// character cut in two at the end.
std::string_view NameText(std::string_view name);

}  // namespace kestrin::shapefile
