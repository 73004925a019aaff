#include "export/point/table.h"

#include <bit>
#include <cstdint>
#include <string>

#include "jobstore/queries.h"

namespace kestrin::point {
namespace {

constexpr std::size_t kFieldsPerSection = 4;
constexpr std::uint32_t kSectionBits = 0xFFFF;

int SectionsByStatus(jobstore::Job& job) {
  std::int32_t largest = 0;
  jobstore::ReadFirst<jobstore::BoomStatusMaximum>(job, largest);
  if (largest <= 0) return 0;
  return static_cast<int>(std::bit_width(static_cast<std::uint32_t>(largest) & kSectionBits));
}

int SectionsByWidth(jobstore::Job& job) {
  int sections = 0;
  for (int section = 0; section < jobstore::kSectionSlots; ++section) {
    double largest = 0;
    jobstore::ReadFirst<jobstore::SectionWidthMaximum>(job, largest, section);
    if (largest > 0) sections = section + 1;
  }
  return sections;
}

/// Brings `products` to the last slot with a rate; as it was when there is none.
template <class Maxima>
void CountProducts(jobstore::Job& job, int& products) {
  jobstore::SlotRates maxima{};
  jobstore::ReadFirst<Maxima>(job, maxima);
  for (int slot = 0; slot < jobstore::kProductSlots; ++slot) {
    if (maxima[static_cast<std::size_t>(slot)] > 0) products = slot + 1;
  }
}

std::string Numbered(const char* name, int number, int count) {
  return count > 1 ? name + std::to_string(number) : name;
}

}  // namespace

Groups CountGroups(jobstore::Job& job) {
  Groups groups;
  int sections = SectionsByStatus(job);
  if (sections == 0) sections = SectionsByWidth(job);
  if (sections > 0) groups.sections = sections;

  int products = 0;
  CountProducts<jobstore::DesiredRateMaxima>(job, products);
  if (products < jobstore::kProductSlots) CountProducts<jobstore::ActualRateMaxima>(job, products);
  if (products > 0) groups.products = products;
  return groups;
}

const std::array<shapefile::Field, kImplementField> kEpochFields{{
    {"ID", 'N', 10, 0},
    {"Week", 'N', 10, 0},
    {"Msec", 'N', 10, 0},
    {"Longitude", 'N', 13, 8},
    {"Latitude", 'N', 12, 8},
    {"Altitude", 'N', 10, 2},
    {"East", 'N', 10, 2},
    {"North", 'N', 10, 2},
    {"Up", 'N', 10, 2},
    {"Yaw", 'N', 6, 2},
    {"Pitch", 'N', 6, 2},
    {"Roll", 'N', 6, 2},
    {"Speed", 'N', 6, 2},
    {"Type", 'N', 10, 0},
    {"BoomStatus", 'N', 10, 0},
}};

std::vector<shapefile::Field> FieldsOf(Groups groups) {
  std::vector<shapefile::Field> fields(kEpochFields.begin(), kEpochFields.end());
  fields.push_back({"Implement", 'C', 10, 0});
  for (int i = 1; i <= groups.sections; ++i) {
    for (const char* name : {"Width", "Xoffset", "Yoffset", "Zoffset"}) {
      fields.push_back({Numbered(name, i, groups.sections), 'N', 10, 2});
    }
  }
  for (int j = 1; j <= groups.products; ++j) {
    fields.push_back({Numbered("Product", j, groups.products), 'C', 10, 0});
    fields.push_back({Numbered("TargRate", j, groups.products), 'N', 10, 2});
    fields.push_back({Numbered("ActRate", j, groups.products), 'N', 10, 2});
  }
  return fields;
}

std::size_t FirstProductField(Groups groups) {
  return kImplementField + 1 + kFieldsPerSection * static_cast<std::size_t>(groups.sections);
}

}  // namespace kestrin::point
