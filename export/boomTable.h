#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "export/attributeTable.h"
#include "export/boomRecords.h"
#include "export/boomTimeline.h"

namespace kestrin {

/// Fields of a boom set's attribute table: ID, implement, then product, target rate
/// and actual rate of each slot.
extern const std::array<Field, 11> kBoomFields;

/// Fills the attribute records of a boom set.
class BoomTable {
 public:
  explicit BoomTable(const BoomTimeline& timeline) : timeline_(timeline), record_(kBoomFields) {}

  /// The attributes of the record of that ID. Valid until the next call.
  std::string_view RowOf(std::size_t id, const BoomRecords::Record& record);

 private:
  const BoomTimeline& timeline_;
  AttributeRecord record_;
};

}  // namespace kestrin
