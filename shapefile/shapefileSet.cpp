#include "shapefile/shapefileSet.h"

#include <array>
#include <cassert>
#include <optional>
#include <utility>

#include "base/byteOrder.h"
#include "shapefile/setFile.h"

namespace kestrin::shapefile {
namespace {

constexpr const char* kShp = ".shp";
constexpr const char* kShx = ".shx";
constexpr const char* kDbf = ".dbf";

constexpr std::size_t kLargeBuffer = std::size_t{1} << 20;
constexpr std::size_t kIndexBuffer = std::size_t{1} << 18;
constexpr std::size_t kSidecarBuffer = 1024;

constexpr std::size_t kHeaderSize = 100;
constexpr std::size_t kRecordHeaderSize = 8;
constexpr std::size_t kOnePartSize = 56;
constexpr std::size_t kPairsFixedSize = 52;
constexpr std::size_t kVertexSize = 16;
constexpr std::uint64_t kIndexRecordSize = 8;
constexpr std::uint64_t kRecordCountOffset = 4;
constexpr char kEndOfTable = 0x1A;

constexpr std::string_view kProjection =
    "GEOGCS[\"GCS_North_American_1983\",DATUM[\"D_North_American_1983\","
    "SPHEROID[\"GRS_1980\",6378137.0,298.257222101]],PRIMEM[\"Greenwich\",0.0],"
    "UNIT[\"Degree\",0.0174532925199433]]";
constexpr std::string_view kEncoding = "UTF-8";

/// The formats count in 16-bit words.
std::uint32_t Words(std::uint64_t bytes) { return static_cast<std::uint32_t>(bytes / 2); }

/// Bounds of nothing are four zeros in a file.
char* PutBox(char* out, const geo::Box& box) {
  const geo::Box shown = box.IsEmpty() ? geo::Box{0, 0, 0, 0} : box;
  for (const double bound : {shown.xMin, shown.yMin, shown.xMax, shown.yMax}) {
    out = base::PutLeDouble(out, bound);
  }
  return out;
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
  files.RemoveAll(all);
}

bool SetExists(base::FileSystem& files, const std::string& basePath) {
  for (const char* extension : {kShp, kShx, kDbf}) {
    if (!files.Exists(basePath + extension)) return false;
  }
  return true;
}

struct ShapefileSet::State {
  State(base::FileSystem& fileSystem, std::string path, ShapeType shapeType,
        std::span<const Field> fields, const SetOptions& setOptions)
      : files(fileSystem),
        basePath(std::move(path)),
        type(shapeType),
        options(setOptions),
        recordLength(RecordLength(fields)),
        dbf(files, basePath + kDbf, kLargeBuffer),
        shx(files, basePath + kShx, kIndexBuffer),
        shp(files, basePath + kShp, kLargeBuffer) {
    dbf.Append(TableHeader(fields, options.date, 0));
    shx.Append(View(FileHeader(type, 0, {})));
    shp.Append(View(FileHeader(type, 0, {})));
  }

  char* PutRecordHeader(char* out, std::uint64_t contentBytes) const;
  void AddIndex(std::uint64_t start, std::uint64_t contentBytes);
  void CompleteFiles();
  std::vector<SetFile*> InOrderOfNaming();
  void WriteSidecar(std::optional<SetFile>& file, const char* extension, std::string_view text);

  base::FileSystem& files;
  std::string basePath;
  ShapeType type;
  SetOptions options;
  std::size_t recordLength;

  geo::Box fileBox;
  geo::Box recordBox;
  std::uint64_t recordStart = 0;
  std::uint32_t vertexCount = 0;
  std::uint32_t recordCount = 0;
  std::uint32_t attributeCount = 0;

  // Destroyed from the last to the first: a set that fails while it takes its names
  // loses its ".shp" before all others.
  std::optional<SetFile> prj;
  std::optional<SetFile> cpg;
  SetFile dbf;
  SetFile shx;
  SetFile shp;
};

char* ShapefileSet::State::PutRecordHeader(char* out, std::uint64_t contentBytes) const {
  out = base::PutBe32(out, recordCount);
  out = base::PutBe32(out, Words(contentBytes));
  return base::PutLe32(out, static_cast<std::uint32_t>(type));
}

void ShapefileSet::State::AddIndex(std::uint64_t start, std::uint64_t contentBytes) {
  base::PutBe32(base::PutBe32(shx.Next(kIndexRecordSize), Words(start)), Words(contentBytes));
}

void ShapefileSet::State::CompleteFiles() {
  shp.Patch(0, View(FileHeader(type, shp.Size(), fileBox)));
  shx.Patch(0, View(FileHeader(type, shx.Size(), fileBox)));
  std::array<char, 4> count{};
  base::PutLe32(count.data(), recordCount);
  dbf.Patch(kRecordCountOffset, View(count));
  *dbf.Next(1) = kEndOfTable;
  if (!options.withProjection) return;
  WriteSidecar(prj, ".prj", kProjection);
  WriteSidecar(cpg, ".cpg", kEncoding);
}

std::vector<SetFile*> ShapefileSet::State::InOrderOfNaming() {
  std::vector<SetFile*> all{&shx, &dbf};
  if (prj) all.push_back(&*prj);
  if (cpg) all.push_back(&*cpg);
  // The set is there from the moment its ".shp" is.
  all.push_back(&shp);
  return all;
}

void ShapefileSet::State::WriteSidecar(std::optional<SetFile>& file, const char* extension,
                                       std::string_view text) {
  file.emplace(files, basePath + extension, kSidecarBuffer);
  file->Append(text);
}

ShapefileSet::ShapefileSet(base::FileSystem& files, std::string basePath, ShapeType type,
                           std::span<const Field> fields, const SetOptions& options)
    : state_(std::make_unique<State>(files, std::move(basePath), type, fields, options)) {}

ShapefileSet::~ShapefileSet() = default;

void ShapefileSet::AddPoint(double x, double y) {
  constexpr std::size_t kContent = 4 + kVertexSize;
  State& set = *state_;
  ++set.recordCount;
  set.fileBox.Widen(x, y);
  set.AddIndex(set.shp.Size(), kContent);
  char* out = set.PutRecordHeader(set.shp.Next(kRecordHeaderSize + kContent), kContent);
  base::PutLeDouble(base::PutLeDouble(out, x), y);
}

void ShapefileSet::BeginRecord() {
  State& set = *state_;
  ++set.recordCount;
  set.recordBox = {};
  set.vertexCount = 0;
  set.recordStart = set.shp.Size();
  // Its place; what stands there is known when the record ends.
  set.shp.Next(kOnePartSize);
}

void ShapefileSet::AddVertex(double x, double y) {
  State& set = *state_;
  set.fileBox.Widen(x, y);
  set.recordBox.Widen(x, y);
  ++set.vertexCount;
  base::PutLeDouble(base::PutLeDouble(set.shp.Next(kVertexSize), x), y);
}

void ShapefileSet::EndRecord() {
  State& set = *state_;
  const std::uint64_t content = set.shp.Size() - set.recordStart - kRecordHeaderSize;
  std::array<char, kOnePartSize> fixed{};
  char* out = PutBox(set.PutRecordHeader(fixed.data(), content), set.recordBox);
  out = base::PutLe32(out, 1);
  out = base::PutLe32(out, set.vertexCount);
  base::PutLe32(out, 0);
  set.shp.Patch(set.recordStart, View(fixed));
  set.AddIndex(set.recordStart, content);
}

void ShapefileSet::AddPairs(const geo::Box& box, std::span<const double> coordinates) {
  BeginPairs(box, coordinates.size() / 4);
  AddPairPoints(coordinates);
}

void ShapefileSet::BeginPairs(const geo::Box& box, std::size_t parts) {
  State& set = *state_;
  const std::uint64_t content =
      kPairsFixedSize - kRecordHeaderSize + (4 + 2 * kVertexSize) * std::uint64_t{parts};
  ++set.recordCount;
  set.AddIndex(set.shp.Size(), content);
  char* out = PutBox(set.PutRecordHeader(set.shp.Next(kPairsFixedSize), content), box);
  const auto partCount = static_cast<std::uint32_t>(parts);
  base::PutLe32(base::PutLe32(out, partCount), 2 * partCount);
  for (std::uint32_t part = 0; part < partCount; ++part) base::PutLe32(set.shp.Next(4), 2 * part);
}

void ShapefileSet::AddPairPoints(std::span<const double> coordinates) {
  assert(coordinates.size() % 4 == 0);
  for (const double coordinate : coordinates) base::PutLeDouble(state_->shp.Next(8), coordinate);
}

void ShapefileSet::WidenBox(double x, double y) { state_->fileBox.Widen(x, y); }

void ShapefileSet::AddAttributes(std::string_view record) {
  assert(record.size() == state_->recordLength);
  ++state_->attributeCount;
  state_->dbf.Append(record);
}

std::int32_t ShapefileSet::RecordCount() const {
  return static_cast<std::int32_t>(state_->recordCount);
}

void ShapefileSet::Commit() {
  State& set = *state_;
  assert(set.attributeCount == set.recordCount);
  set.CompleteFiles();
  const std::vector<SetFile*> all = set.InOrderOfNaming();
  for (SetFile* file : all) file->Finish();
  // One that came up meanwhile must not stand beside an index of another set.
  set.files.Remove(set.basePath + kShp);
  for (SetFile* file : all) file->Publish();
  set.files.SyncFolderOf(set.basePath + kShp);
  for (SetFile* file : all) file->Keep();
}

}  // namespace kestrin::shapefile
