#include "export/boom/table.h"

#include "shapefile/numberText.h"

namespace kestrin::boom {

const std::array<shapefile::Field, 11> kFields{{
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

std::string_view Table::RowOf(std::size_t id, const Records::Record& record) {
  const TimelineEntry& entry = timeline_.Entries()[record.entry];
  const ProductNames& products = timeline_.ProductsOf(entry);
  record_.Clear();
  record_.Add(shapefile::IntegerText(static_cast<std::int64_t>(id)).View(),
              shapefile::Keep::kRight);
  record_.Add(timeline_.ImplementOf(entry).name, shapefile::Keep::kLeft);
  for (std::size_t slot = 0; slot < jobstore::kProductSlots; ++slot) {
    record_.Add(products[slot], shapefile::Keep::kLeft);
    record_.Add(shapefile::RoundedText(entry.desiredRates[slot], 2).View(), shapefile::Keep::kLeft);
    record_.Add(shapefile::RoundedText(record.rates[slot], 2).View(), shapefile::Keep::kLeft);
  }
  return record_.Bytes();
}

}  // namespace kestrin::boom
