#pragma once

#include <cstdint>
#include <string_view>

#include "export/point/table.h"
#include "geo/points.h"
#include "jobstore/queries.h"
#include "shapefile/attributeTable.h"

namespace kestrin::point {

/// The fields of the epoch itself, which stand before all others.
class EpochText {
 public:
  EpochText();

  /// Their text, valid until the next. `up` of the job goes out with its sign as it is, and adds
  /// to the reference altitude. Angles in degrees.
  std::string_view Of(std::int32_t id, const jobstore::EpochRow& epoch, geo::GeoPoint position,
                      double referenceAltitude);

 private:
  shapefile::AttributeRecord record_;
};

/// The attribute record of the points, kept from one to the next: only what changed
/// since is written anew. Every text is right-justified and keeps its last
/// characters when it is longer than its field; of a name, its first are taken
/// before (NameText).
class Record {
 public:
  explicit Record(Groups groups);

  /// The implement in force, with its name up to a byte 0. Its numbers stand as
  /// they are, unrounded.
  void SetImplement(const jobstore::ImplementRow& implement);

  /// What is applied, and at which rates; rates rounded to 2 decimals.
  void SetProducts(const jobstore::ProductsRow& products, const jobstore::RatesRow& desired,
                   const jobstore::RatesRow& actual);

  /// The epoch itself, as EpochText says.
  void SetEpoch(std::string_view text) { record_.Begin(text); }

  /// The record as it stands in the table, once all three have been set.
  std::string_view Bytes() const { return record_.Bytes(); }

 private:
  Groups groups_;
  shapefile::AttributeRecord record_;
};

}  // namespace kestrin::point
