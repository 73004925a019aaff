#include "tests/support/jobBuilder.h"

#include <charconv>
#include <fstream>

#include "tests/support/tempFolder.h"
#include "tools/sample/jobSchema.h"

namespace kestrin::test {
namespace {

constexpr double kRadiansPerDegree = 0.0174532925199433;

std::string Number(double value) {
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, value).ptr;
  return {text, end};
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    quoted += c;
    if (c == '\'') quoted += c;
  }
  return quoted + "'";
}

std::string Values(jobstore::GpsKey time) {
  return std::to_string(time.gpsWeek) + "," + std::to_string(time.gpsMsec);
}

constexpr std::size_t kPage = 4096;
constexpr char kNoPage = '\x7f';  // is no type of a page

/// Makes the first page of a type unreadable, from a share of the file on.
void DamagePage(const std::string& path, char type, double share) {
  std::string bytes = FileBytes(path);
  const auto pages = static_cast<double>(bytes.size() / kPage);
  std::size_t at = static_cast<std::size_t>(pages * share) * kPage;
  while (bytes.at(at) != type) at += kPage;
  bytes[at] = kNoPage;
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace

JobBuilder::JobBuilder(const std::string& path) : path_(path), database_(path) {
  // No journal beside a job that a test has not finished.
  Execute("PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY");
  Execute(sample::JobSchema());
  Execute("BEGIN");
}

JobBuilder& JobBuilder::Reference(jobstore::GpsKey time, double latitude, double longitude,
                                  double altitude) {
  Insert("ReferenceLocationChangeTable", Values(time) + "," + Number(latitude * kRadiansPerDegree) +
                                             "," + Number(longitude * kRadiansPerDegree) + "," +
                                             Number(altitude));
  return *this;
}

JobBuilder& JobBuilder::Implement(jobstore::GpsKey time, const std::string& name,
                                  const std::vector<jobstore::Section>& sections, double number) {
  std::string values = Values(time) + "," + Quoted(name) + "," + Number(number);
  for (std::size_t slot = 0; slot < jobstore::kSectionSlots; ++slot) {
    const jobstore::Section section =
        slot < sections.size() ? sections[slot] : jobstore::Section{-1, 0, 0, 0};
    for (const double value : {section.width, section.xOffset, section.yOffset, section.zOffset}) {
      values += "," + Number(value);
    }
  }
  Insert("ImplChangeTable", values);
  return *this;
}

JobBuilder& JobBuilder::Epoch(const jobstore::EpochRow& epoch) {
  std::string values = Values(epoch.time);
  for (const double value :
       {epoch.east, epoch.north, epoch.down, epoch.yaw, epoch.pitch, epoch.roll, epoch.speed}) {
    values += "," + Number(value);
  }
  values += "," + std::to_string(epoch.type) + "," + std::to_string(epoch.boomStatus);
  Insert("GpsDataTable", values);
  return *this;
}

JobBuilder& JobBuilder::Epoch(jobstore::GpsKey time, double east, double north, double yaw,
                              bool begins) {
  jobstore::EpochRow epoch;
  epoch.time = time;
  epoch.east = east;
  epoch.north = north;
  epoch.yaw = yaw;
  epoch.type = kTakesPart | (begins ? jobstore::EpochRow::kNewStretch : 0);
  return Epoch(epoch);
}

JobBuilder& JobBuilder::DesiredRates(jobstore::GpsKey time, double rate0, double rate1,
                                     double rate2) {
  Insert("AsAppliedDesRateChangeTable",
         Values(time) + "," + Number(rate0) + "," + Number(rate1) + "," + Number(rate2));
  return *this;
}

JobBuilder& JobBuilder::ActualRates(jobstore::GpsKey time, double rate0, double rate1,
                                    double rate2) {
  Insert("AsAppliedActRateChangeTable",
         Values(time) + "," + Number(rate0) + "," + Number(rate1) + "," + Number(rate2));
  return *this;
}

JobBuilder& JobBuilder::Products(jobstore::GpsKey time, const std::string& name0,
                                 const std::string& name1, const std::string& name2) {
  Insert("AsAppliedProductChangeTable",
         Values(time) + "," + Quoted(name0) + "," + Quoted(name1) + "," + Quoted(name2));
  return *this;
}

JobBuilder& JobBuilder::Version(jobstore::GpsKey time, const std::string& text) {
  Insert("VersionChangeTable", Values(time) + "," + Quoted(text));
  return *this;
}

JobBuilder& JobBuilder::Execute(const std::string& sql) {
  database_.value().Execute(sql);
  return *this;
}

std::string JobBuilder::Finish() {
  Execute("COMMIT");
  database_.reset();
  return path_;
}

void JobBuilder::Insert(const std::string& table, const std::string& values) {
  Execute("INSERT INTO " + table + " VALUES (" + values + ")");
}

double AsStored(double degrees) { return degrees * kRadiansPerDegree * base::kDegreesPerRadian; }

void DamageTablePage(const std::string& path) {
  constexpr char kTableLeaf = 13;
  DamagePage(path, kTableLeaf, 1.0 / 3);
}

void DamageIndexPage(const std::string& path) {
  constexpr char kIndexLeaf = 10;
  DamagePage(path, kIndexLeaf, 0.9);
}

void DamageTable(const std::string& path, const std::string& table) {
  const double page = Ask(path, "SELECT rootpage FROM sqlite_master WHERE name='" + table + "'");
  std::string bytes = FileBytes(path);
  bytes.at((static_cast<std::size_t>(page) - 1) * kPage) = kNoPage;
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace kestrin::test
