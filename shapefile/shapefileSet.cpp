#include "shapefile/shapefileSet.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <utility>

#include "base/byteOrder.h"

namespace kestrin::shapefile {
namespace {

constexpr const char* kShp = ".shp";
constexpr const char* kShx = ".shx";
constexpr const char* kDbf = ".dbf";

constexpr std::size_t kLargeBuffer = std::size_t{1} << 18;
constexpr std::size_t kIndexBuffer = std::size_t{1} << 16;
constexpr std::size_t kSidecarBuffer = 1024;

constexpr std::size_t kHeaderSize = 100;
constexpr std::size_t kRecordHeaderSize = 8;
/// Of a polyline or polygon record, before its parts.
constexpr std::size_t kFixedSize = 52;
constexpr std::size_t kPartSize = 4;
constexpr std::size_t kVertexSize = 16;
constexpr std::size_t kIndexRecordSize = 8;
constexpr std::uint64_t kRecordCountOffset = 4;
constexpr char kEndOfTable = 0x1A;

constexpr std::string_view kProjection =
    "GEOGCS[\"GCS_North_American_1983\",DATUM[\"D_North_American_1983\","
    "SPHEROID[\"GRS_1980\",6378137.0,298.257222101]],PRIMEM[\"Greenwich\",0.0],"
    "UNIT[\"Degree\",0.0174532925199433]]";
constexpr std::string_view kEncoding = "UTF-8";

/// The formats count in 16-bit words.
std::uint32_t Words(std::uint64_t bytes) { return static_cast<std::uint32_t>(bytes / 2); }

char* PutPoint(char* out, geo::GeoPoint point) {
  return base::PutLeDouble(base::PutLeDouble(out, point.longitude), point.latitude);
}

/// Bounds of nothing are four zeros in a file.
char* PutBox(char* out, const geo::Box& box) {
  const geo::Box shown = box.IsEmpty() ? geo::Box{0, 0, 0, 0} : box;
  return PutPoint(PutPoint(out, {shown.xMin, shown.yMin}), {shown.xMax, shown.yMax});
}

std::array<char, kHeaderSize> FileHeader(ShapeType type, std::uint64_t bytes, const geo::Box& box) {
  std::array<char, kHeaderSize> header{};
  base::PutBe32(header.data(), 9994);
  char* out = base::PutBe32(&header[24], Words(bytes));
  out = base::PutLe32(out, 1000);
  out = base::PutLe32(out, static_cast<std::uint32_t>(type));
  PutBox(out, box);
  return header;
}

template <std::size_t N>
std::string_view View(const std::array<char, N>& bytes) {
  return {bytes.data(), N};
}

}  // namespace

void RemoveSet(base::FileSystem& files, const std::string& basePath) {
  if (basePath.empty()) return;
  // Without its ".shp" no GIS opens what may be left of a set.
  const std::string all[] = {basePath + kShp, basePath + kShx, basePath + kDbf};
  // Never from between the files of a set that another program is giving their names.
  const auto lock = files.LockFolderOf(all[0]);
  files.RemoveAll(all);
}

bool SetExists(base::FileSystem& files, const std::string& basePath) {
  for (const char* extension : {kShp, kShx, kDbf}) {
    if (!files.Exists(basePath + extension)) return false;
  }
  return true;
}

ShapefileSet::ShapefileSet(base::FileSystem& files, std::string basePath, ShapeType type,
                           std::span<const Field> fields, const SetOptions& options)
    : files_(files),
      basePath_(std::move(basePath)),
      type_(type),
      withProjection_(options.withProjection),
      lasting_(options.lasting),
      attributesSize_(RecordLength(fields)),
      dbf_(files, basePath_ + kDbf, kLargeBuffer),
      shx_(files, basePath_ + kShx, kIndexBuffer),
      shp_(files, basePath_ + kShp, kLargeBuffer) {
  dbf_.Append(TableHeader(fields, options.date, 0));
  // Length and box are known when the files are complete.
  for (SetFile* file : {&shx_, &shp_}) file->Append(View(FileHeader(type_, 0, {})));
}

char* ShapefileSet::PutRecordHeader(char* out, std::uint64_t contentBytes) const {
  out = base::PutBe32(out, recordCount_);
  out = base::PutBe32(out, Words(contentBytes));
  return base::PutLe32(out, static_cast<std::uint32_t>(type_));
}

void ShapefileSet::CountRecord(std::uint64_t start, std::uint64_t contentBytes,
                               std::string_view attributes) {
  assert(attributes.size() == attributesSize_);
  ++recordCount_;
  base::PutBe32(base::PutBe32(shx_.Next(kIndexRecordSize), Words(start)), Words(contentBytes));
  dbf_.Append(attributes);
}

void ShapefileSet::AddPoint(geo::GeoPoint point, std::string_view attributes) {
  constexpr std::size_t kContent = 4 + kVertexSize;
  CountRecord(shp_.Size(), kContent, attributes);
  box_.Widen(point);
  PutPoint(PutRecordHeader(shp_.Next(kRecordHeaderSize + kContent), kContent), point);
}

void ShapefileSet::BeginRecord(std::size_t parts) {
  recordBox_ = {};
  recordStart_ = shp_.Size();
  // Their place; what stands there is known when the record ends, which can be after it was
  // written.
  std::fill_n(shp_.Next(kFixedSize), kFixedSize, '\0');
  for (std::size_t part = 0; part < parts; ++part) {
    std::fill_n(shp_.Next(kPartSize), kPartSize, '\0');
  }
  verticesStart_ = shp_.Size();
  partStarts_.assign(1, 0);
}

void ShapefileSet::BeginPart() {
  partStarts_.push_back(static_cast<std::uint32_t>((shp_.Size() - verticesStart_) / kVertexSize));
}

void ShapefileSet::AddVertex(geo::GeoPoint vertex) {
  box_.Widen(vertex);
  recordBox_.Widen(vertex);
  PutPoint(shp_.Next(kVertexSize), vertex);
}

void ShapefileSet::EndRecord(std::string_view attributes) {
  assert(recordStart_ + kFixedSize + kPartSize * partStarts_.size() == verticesStart_);
  const std::uint64_t content = shp_.Size() - recordStart_ - kRecordHeaderSize;
  CountRecord(recordStart_, content, attributes);
  std::array<char, kFixedSize> fixed{};
  char* out = PutBox(PutRecordHeader(fixed.data(), content), recordBox_);
  out = base::PutLe32(out, static_cast<std::uint32_t>(partStarts_.size()));
  base::PutLe32(out, static_cast<std::uint32_t>((shp_.Size() - verticesStart_) / kVertexSize));
  shp_.Patch(recordStart_, View(fixed));
  std::uint64_t place = recordStart_ + kFixedSize;
  for (const std::uint32_t start : partStarts_) {
    std::array<char, kPartSize> part{};
    base::PutLe32(part.data(), start);
    shp_.Patch(place, View(part));
    place += kPartSize;
  }
}

void ShapefileSet::BeginCrossLines(const geo::Box& box, std::size_t count,
                                   std::string_view attributes) {
  const std::uint64_t content =
      kFixedSize - kRecordHeaderSize + (4 + 2 * kVertexSize) * std::uint64_t{count};
  CountRecord(shp_.Size(), content, attributes);
  char* out = PutBox(PutRecordHeader(shp_.Next(kFixedSize), content), box);
  const auto parts = static_cast<std::uint32_t>(count);
  base::PutLe32(base::PutLe32(out, parts), 2 * parts);
  for (std::uint32_t part = 0; part < parts; ++part) base::PutLe32(shp_.Next(4), 2 * part);
}

void ShapefileSet::AddCrossLine(geo::GeoPoint first, geo::GeoPoint second) {
  PutPoint(PutPoint(shp_.Next(2 * kVertexSize), first), second);
}

void ShapefileSet::CompleteFiles() {
  for (SetFile* file : {&shx_, &shp_}) file->Patch(0, View(FileHeader(type_, file->Size(), box_)));
  std::array<char, 4> count{};
  base::PutLe32(count.data(), recordCount_);
  dbf_.Patch(kRecordCountOffset, View(count));
  *dbf_.Next(1) = kEndOfTable;
  if (!withProjection_) return;
  WriteSidecar(prj_, ".prj", kProjection);
  WriteSidecar(cpg_, ".cpg", kEncoding);
}

void ShapefileSet::WriteSidecar(std::optional<SetFile>& file, const char* extension,
                                std::string_view text) {
  file.emplace(files_, basePath_ + extension, kSidecarBuffer);
  file->Append(text);
}

std::vector<SetFile*> ShapefileSet::InOrderOfNaming() {
  std::vector<SetFile*> all{&shx_, &dbf_};
  if (prj_) all.push_back(&*prj_);
  if (cpg_) all.push_back(&*cpg_);
  // The set is there from the moment its ".shp" is.
  all.push_back(&shp_);
  return all;
}

void ShapefileSet::Commit() {
  CompleteFiles();
  const std::vector<SetFile*> all = InOrderOfNaming();
  for (SetFile* file : all) file->Finish(lasting_);
  lock_ = files_.LockFolderOf(basePath_ + kShp);
  // One that came up meanwhile must not stand beside an index of another set.
  files_.Remove(basePath_ + kShp);
  for (SetFile* file : all) file->Publish();
  if (lasting_) files_.SyncFolderOf(basePath_ + kShp);
  for (SetFile* file : all) file->Keep();
  lock_.reset();
}

}  // namespace kestrin::shapefile
