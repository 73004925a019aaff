#include "export/boomTable.h"

#include "export/numberText.h"

namespace kestrin {

const std::array<Field, 11> kBoomFields{{
    {"ID", 'N', 8, 0},
    {"IMPLEMENT", 'C', 10, 0},
    {"Product1", 'C', 10, 0},
    {"TargRate1", 'N', 10, 2},
    {"ActRate1", 'N', 10, 2},
    {"Product2", 'C', 10, 0},
    {"TargRate2", 'N', 10, 2},
    {"ActRate2", 'N', 10, 2},
    {"Product3", 'C', 10, 0},
    {"TargRate3", 'N', 10, 2},
    {"ActRate3", 'N', 10, 2},
}};

std::string_view BoomTable::RowOf(std::size_t id, const BoomRecords::Record& record) {
  const TimelineEntry& entry = timeline_.Entries()[record.entry];
  const ProductNames& products = timeline_.ProductsOf(entry);
  record_.Clear();
  record_.Add(IntegerText(static_cast<long long>(id)).View(), Keep::kRight);
  record_.Add(NameText(timeline_.ImplementOf(entry).name), Keep::kLeft);
  for (std::size_t slot = 0; slot < kProductSlots; ++slot) {
    record_.Add(NameText(products[slot]), Keep::kLeft);
    record_.Add(RoundedText(entry.desiredRates[slot], 2).View(), Keep::kLeft);
    record_.Add(RoundedText(record.rates[slot], 2).View(), Keep::kLeft);
  }
  return record_.Bytes();
}

}  // namespace kestrin
