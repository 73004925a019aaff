#include "tests/support/shapeReader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <stdexcept>

#include "tests/support/tempFolder.h"

namespace kestrin::test {
namespace {

void Require(bool holds, const char* what) {
  if (!holds) throw std::runtime_error(what);
}

/// Bytes read from the front to the back.
class Bytes {
 public:
  explicit Bytes(const std::string& bytes) : bytes_(bytes) {}

  std::size_t At() const { return at_; }
  std::size_t Left() const { return bytes_.size() - at_; }

  std::uint32_t Byte() {
    Require(at_ < bytes_.size(), "file ends too early");
    return static_cast<unsigned char>(bytes_[at_++]);
  }
  std::int32_t Big32() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) value = value * 256 + Byte();
    return static_cast<std::int32_t>(value);
  }
  std::int32_t Little(int size) {
    std::uint32_t value = 0;
    for (int i = 0; i < size; ++i) value += Byte() << (8 * i);
    return static_cast<std::int32_t>(value);
  }
  std::int32_t Little32() { return Little(4); }
  double Double() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits |= static_cast<std::uint64_t>(Byte()) << (8 * i);
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  }
  std::string Text(int size) {
    std::string text;
    for (int i = 0; i < size; ++i) text += static_cast<char>(Byte());
    return text;
  }
  geo::GeoPoint Point() { return {Double(), Double()}; }
  geo::Box Box() { return {Double(), Double(), Double(), Double()}; }
  void Zeros(int size, const char* what) {
    while (size-- > 0) Require(Byte() == 0, what);
  }

 private:
  const std::string& bytes_;
  std::size_t at_ = 0;
};

void ReadHeader(Bytes& in, std::size_t size, ReadSet& set) {
  Require(in.Big32() == 9994, "file code");
  in.Zeros(20, "unused header word is not 0");
  Require(static_cast<std::size_t>(in.Big32()) * 2 == size, "file length");
  Require(in.Little32() == 1000, "version");
  set.type = in.Little32();
  set.box = in.Box();
  in.Zeros(32, "Z or M bound is not 0");
}

/// A NaN is one and the same as itself here: a coordinate may be one.
bool SameBytes(const geo::Box& one, const geo::Box& other) {
  using Bits = std::array<std::uint64_t, 4>;
  return std::bit_cast<Bits>(one) == std::bit_cast<Bits>(other);
}

void CheckBox(const ReadRecord& record) {
  geo::Box box{0, 0, 0, 0};
  bool first = true;
  for (const auto& [x, y] : record.points) {
    if (first) box = {x, y, x, y};
    first = false;
    box = {std::min(box.xMin, x), std::min(box.yMin, y), std::max(box.xMax, x),
           std::max(box.yMax, y)};
  }
  Require(SameBytes(box, record.box), "record box");
}

ReadRecord ReadParts(Bytes& in, RecordBoxes boxes) {
  ReadRecord record;
  record.box = in.Box();
  const std::int32_t parts = in.Little32();
  const std::int32_t points = in.Little32();
  Require(parts >= 0 && points >= 0, "counts of parts and points");
  for (std::int32_t i = 0; i < parts; ++i) record.parts.push_back(in.Little32());
  Require(parts == 0 || record.parts[0] == 0, "first part");
  Require(std::is_sorted(record.parts.begin(), record.parts.end()), "order of parts");
  Require(parts == 0 || record.parts.back() <= points, "last part");
  for (std::int32_t i = 0; i < points; ++i) record.points.push_back(in.Point());
  if (boxes == RecordBoxes::kOfTheirPoints) CheckBox(record);
  return record;
}

ReadRecord ReadPoint(Bytes& in) {
  ReadRecord record;
  record.points.push_back(in.Point());
  return record;
}

void ReadShapes(const std::string& shp, const std::string& shx, RecordBoxes boxes, ReadSet& set) {
  Bytes in(shp);
  Bytes index(shx);
  ReadSet indexed;
  ReadHeader(in, shp.size(), set);
  ReadHeader(index, shx.size(), indexed);
  Require(indexed.type == set.type && SameBytes(indexed.box, set.box), "header of the index");
  Require(set.type == 1 || set.type == 3 || set.type == 5, "shape type");
  for (std::int32_t number = 1; in.Left() > 0; ++number) {
    Require(static_cast<std::size_t>(index.Big32()) * 2 == in.At(), "offset in the index");
    Require(in.Big32() == number, "record number");
    const std::int32_t words = in.Big32();
    Require(index.Big32() == words, "content length in the index");
    const std::size_t start = in.At();
    Require(in.Little32() == set.type, "shape type of a record");
    set.records.push_back(set.type == 1 ? ReadPoint(in) : ReadParts(in, boxes));
    Require(in.At() - start == static_cast<std::size_t>(words) * 2, "content length");
  }
  Require(index.Left() == 0, "index is too long");
}

ReadField ReadDescriptor(Bytes& in) {
  ReadField field;
  field.name = in.Text(11);
  const std::size_t size = std::min(field.name.find('\0'), field.name.size());
  Require(field.name.find_first_not_of('\0', size) == std::string::npos, "field name");
  field.name.resize(size);
  field.type = static_cast<char>(in.Byte());
  in.Zeros(4, "field address is not 0");
  field.width = in.Little(1);
  field.decimals = in.Little(1);
  in.Zeros(14, "end of a descriptor is not 0");
  return field;
}

void ReadTable(const std::string& dbf, ReadSet& set) {
  Bytes in(dbf);
  Require(in.Byte() == 3, "table version");
  set.date = {1900 + in.Little(1), in.Little(1), in.Little(1)};
  const std::int32_t count = in.Little32();
  const std::int32_t headerLength = in.Little(2);
  const std::int32_t recordLength = in.Little(2);
  in.Zeros(20, "reserved table header is not 0");
  int width = 1;
  for (int i = 0; i < (headerLength - 33) / 32; ++i) {
    set.fields.push_back(ReadDescriptor(in));
    width += set.fields.back().width;
  }
  Require(in.Byte() == 13 && in.At() == static_cast<std::size_t>(headerLength), "table header");
  Require(width == recordLength, "record length");
  for (std::int32_t i = 0; i < count; ++i) {
    Require(in.Byte() == ' ', "deletion mark");
    set.rows.emplace_back();
    for (const ReadField& field : set.fields) set.rows.back().push_back(in.Text(field.width));
  }
  Require(in.Byte() == 26 && in.Left() == 0, "end of table");
}

}  // namespace

ReadSet ReadShapeSet(const std::string& basePath, RecordBoxes boxes) {
  return ReadShapeSet(
      {FileBytes(basePath + ".shp"), FileBytes(basePath + ".shx"), FileBytes(basePath + ".dbf")},
      boxes);
}

ReadSet ReadShapeSet(const SetBytes& bytes, RecordBoxes boxes) {
  ReadSet set;
  ReadShapes(bytes.shp, bytes.shx, boxes, set);
  ReadTable(bytes.dbf, set);
  Require(set.rows.size() == set.records.size(), "rows for records");
  return set;
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

}  // namespace kestrin::test
