#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "jobstore/job.h"
#include "shapefile/attributeTable.h"

namespace kestrin::point {

/// How often the two groups of a point table's fields are repeated.
struct Groups {
  int sections = 1;  ///< 1 to 16
  int products = 1;  ///< 1 to 3
};

/// The groups a job needs.
///
/// Sections: up to the highest of the lowest 16 bits in the largest boom status of
/// all GPS rows, those without a point included; where that says nothing (also as
/// it reads negative from bit 32 on), up to the last section that has ever had a
/// width.
///
/// Products: up to the last slot with a desired rate. Where that leaves slots, the
/// actual rates decide once more and may take slots away again: a table has columns
/// for what was really applied.
Groups CountGroups(jobstore::Job& job);

/// Where the implement's fields begin in FieldsOf; before them stand the epoch's own.
inline constexpr std::size_t kImplementField = 15;
extern const std::array<shapefile::Field, kImplementField> kEpochFields;

/// The fields in their order: the epoch's own, then the implement's name with its
/// section groups, then the product groups. The names of a group carry its number
/// only when there are several.
std::vector<shapefile::Field> FieldsOf(Groups groups);

/// Where the product groups begin in FieldsOf.
std::size_t FirstProductField(Groups groups);

}  // namespace kestrin::point
