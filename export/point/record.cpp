#include "export/point/record.h"

#include <cstddef>

#include "base/angles.h"
#include "base/text.h"
#include "shapefile/numberText.h"

namespace kestrin::point {
namespace {

/// The console ends a name with a byte 0 where it did not fill its column; blanks
/// around such a name are padding. A name without one stands as it is.
std::string_view NameOf(std::string_view text) {
  const std::size_t end = text.find('\0');
  if (end == std::string_view::npos) return text;
  return base::TrimmedBlanks(text.substr(0, end));
}

/// Puts one field after the other.
class Fields {
 public:
  explicit Fields(shapefile::AttributeRecord& record, std::size_t first) : record_(record) {
    record.GoTo(first);
  }

  Fields& Name(std::string_view text) {
    record_.Add(shapefile::NameText(NameOf(text)), shapefile::Keep::kRight);
    return *this;
  }
  Fields& Integer(std::int32_t value) {
    record_.Add(shapefile::IntegerText(value).View(), shapefile::Keep::kRight);
    return *this;
  }
  Fields& Rounded(double value, int decimals = 2) {
    record_.Add(shapefile::RoundedText(value, decimals).View(), shapefile::Keep::kRight);
    return *this;
  }
  Fields& AsItIs(double value) {
    record_.Add(shapefile::ShortestText(value).View(), shapefile::Keep::kRight);
    return *this;
  }

 private:
  shapefile::AttributeRecord& record_;
};

}  // namespace

EpochText::EpochText() : record_(kEpochFields) {}

std::string_view EpochText::Of(std::int32_t id, const jobstore::EpochRow& epoch,
                               geo::GeoPoint position, double referenceAltitude) {
  Fields(record_, 0)
      .Integer(id)
      .Integer(epoch.time.gpsWeek)
      .Integer(epoch.time.gpsMsec)
      .Rounded(position.longitude, 8)
      .Rounded(position.latitude, 8)
      .Rounded(referenceAltitude + epoch.down)
      .Rounded(epoch.east)
      .Rounded(epoch.north)
      .Rounded(epoch.down)
      .Rounded(epoch.yaw * base::kDegreesPerRadian)
      .Rounded(epoch.pitch * base::kDegreesPerRadian)
      .Rounded(epoch.roll * base::kDegreesPerRadian)
      .Rounded(epoch.speed)
      .Integer(epoch.type)
      .Integer(epoch.boomStatus);
  return record_.Bytes();
}

Record::Record(Groups groups) : groups_(groups), record_(FieldsOf(groups)) {}

void Record::SetImplement(const jobstore::ImplementRow& implement) {
  Fields fields(record_, kImplementField);
  fields.Name(implement.name);
  for (int i = 0; i < groups_.sections; ++i) {
    const jobstore::Section& section = implement.sections[static_cast<std::size_t>(i)];
    fields.AsItIs(section.width)
        .AsItIs(section.xOffset)
        .AsItIs(section.yOffset)
        .AsItIs(section.zOffset);
  }
}

void Record::SetProducts(const jobstore::ProductsRow& products, const jobstore::RatesRow& desired,
                         const jobstore::RatesRow& actual) {
  Fields fields(record_, FirstProductField(groups_));
  for (int i = 0; i < groups_.products; ++i) {
    const auto slot = static_cast<std::size_t>(i);
    fields.Name(products.names[slot]).Rounded(desired.rates[slot]).Rounded(actual.rates[slot]);
  }
}

}  // namespace kestrin::point
