#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "export/boom/records.h"
#include "export/boom/timeline.h"
#include "shapefile/attributeTable.h"

namespace kestrin::boom {

/// Fields of a boom set's attribute table: ID, implement, then product, target rate
/// and actual rate of each slot.
extern const std::array<shapefile::Field, 11> kFields;

/// Fills the attribute records of a boom set.
class Table {
 public:
  explicit Table(const Timeline& timeline) : timeline_(timeline), record_(kFields) {}

  /// The attributes of the record of that ID. Valid until the next call.
  std::string_view RowOf(std::size_t id, const Records::Record& record);

 private:
  const Timeline& timeline_;
  shapefile::AttributeRecord record_;
};

}  // namespace kestrin::boom
