// Jobs that are sound databases with content that no console writes, taken through all that the
// program does with one. An input is a program that makes the database: docs/fuzzing.md.

#include <sqlite3.h>

#include <array>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/wholePath.h"
#include "tests/support/database.h"
#include "tools/sample/jobSchema.h"

namespace kestrin::fuzz {
namespace {

/// What keeps a run short: of each table.
constexpr int kRowsAtMost = 300;

struct Table {
  const char* name;
  std::vector<std::string> columns;  // behind the time key
};

std::vector<std::string> ImplementColumns() {
  std::vector<std::string> columns{"implName", "implNumber"};
  for (int slot = 0; slot < 16; ++slot) {
    for (const char* column : {"width", "xOffset", "yOffset", "zOffset"}) {
      columns.push_back(column + std::to_string(slot));
    }
  }
  return columns;
}

const std::vector<Table>& Tables() {
  static const std::vector<Table> tables{
      {"GpsDataTable",
       {"e_I_B__B2", "n_I_B__B2", "d_I_B__B2", "yaw", "pitch", "roll", "speed", "type",
        "boomStatusBitfield"}},
      {"ReferenceLocationChangeTable", {"latitude", "longitude", "altitude"}},
      {"ImplChangeTable", ImplementColumns()},
      {"AsAppliedDesRateChangeTable", {"desiredRate0", "desiredRate1", "desiredRate2"}},
      {"AsAppliedActRateChangeTable", {"actualRate0", "actualRate1", "actualRate2"}},
      {"AsAppliedProductChangeTable", {"ProductName0", "ProductName1", "ProductName2"}},
      {"VersionChangeTable", {"sqlite_ver"}},
  };
  return tables;
}

std::string Hex(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    for (const int shift : {4, 0}) text += "0123456789abcdef"[byte >> shift & 15];
  }
  return "x'" + text + "'";
}

/// Makes a database by what an input says.
class Maker {
 public:
  explicit Maker(Input& input) : input_(input) {
    static constexpr std::array kEncodings{"UTF-8", "UTF-16le", "UTF-16be"};
    Execute(std::string("PRAGMA page_size=1024; PRAGMA encoding='") + OneOf(kEncodings) + "'");
    Execute(sample::JobSchema());
    while (!input_.Ended()) Step();
  }

  std::string Bytes() {
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> bytes(
        sqlite3_serialize(database_.Handle(), "main", &size, 0), sqlite3_free);
    return {bytes.get(), bytes.get() + size};
  }

 private:
  void Step() {
    switch (input_.Below(9)) {
      case 0:
        return Drive();
      case 1:
        return SetUp();
      case 2:
        return ManyChanges();
      case 3:
        return InsertRow();
      case 4:
        return ReplaceCells();
      case 5:
        return RepeatRows();
      case 6:
        return Redefine();
      case 7:
        return Retype();
      default:
        return Reshape();
    }
  }

  /// What fails is left out.
  void Execute(const std::string& sql) { database_.Result(sql); }

  template <class List>
  auto OneOf(const List& list) -> decltype(list[0]) {
    return list[input_.Below(std::size(list))];
  }
  std::string Digits(std::size_t below) { return std::to_string(input_.Below(below)); }
  std::string Any(const Table& table) {
    return input_.Below(3) == 0 ? OneOf(std::array{"gpsWeek", "gpsMsec"}) : OneOf(table.columns);
  }

  std::string Value() {
    static constexpr std::array kValues{"NULL",
                                        "0",
                                        "-1",
                                        "1",
                                        "2147483647",
                                        "-2147483648",
                                        "2147483648",
                                        "4294967298",
                                        "9223372036854775807",
                                        "-9223372036854775807-1",
                                        "9e999",
                                        "-9e999",
                                        "1.7e308",
                                        "5e-324",
                                        "-0.0",
                                        "0.5",
                                        "'abc'",
                                        "''",
                                        "'12abc'",
                                        "' 7'",
                                        "'7 '",
                                        "'1e5'",
                                        "'0x10'",
                                        "x''",
                                        "x'00ff'",
                                        "zeroblob(3000)",
                                        "char(0)",
                                        "char(228,8364,128512)",
                                        "'-9.5'",
                                        "1.5707963267949",
                                        "0.7853981633974",
                                        "-3.1415926535898",
                                        "3.2",
                                        "306783378",
                                        "306783379",
                                        "-306783379",
                                        "604799999",
                                        "604800000",
                                        "8192",
                                        "16384",
                                        "24576",
                                        "-8193",
                                        "1e15",
                                        "500000",
                                        "-1e-9",
                                        "10000000",
                                        "'3.2.8-1'",
                                        "'  Air Seeder '",
                                        "'Zwölfbuchstaben'",
                                        "1400",
                                        "1401"};
    switch (input_.Below(8)) {
      case 0:
        return Decimal(input_.Double());
      case 1:
        return std::to_string(static_cast<std::int64_t>(input_.Number(8)));
      case 2:
        return "CAST(" + Hex(input_.Text(20)) + " AS TEXT)";
      case 3:
        return std::to_string(input_.Below(256)) + "/16.0";
      default:
        return OneOf(kValues);
    }
  }
  static std::string Decimal(double value) {
    char text[64];
    sqlite3_snprintf(sizeof text, text, "%!.17g", value);
    return value != value ? "NULL" : text;
  }

  static std::string Counted(const std::string& count, const std::string& insert) {
    return "WITH RECURSIVE i(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM i WHERE n < " + count +
           ") INSERT INTO " + insert + " FROM i";
  }

  /// Rows as a console writes them: straight or in circles, with a stretch now and then.
  void Drive() {
    const std::string count = Digits(60);
    const std::string turn = "n*" + Digits(256) + "/300.0";
    const std::string far = Digits(64) + "*(1+n/20)";
    Execute(Counted(count, "GpsDataTable SELECT 1400+" + Digits(3) + ", n*200+" + Digits(10000) +
                               ", sin(" + turn + ")*" + far + "+n*" + Digits(32) + "/4.0, cos(" +
                               turn + ")*" + far + ", 1, " + turn + ", 0, 0, 2, 8192+16384*(n%" +
                               Digits(30) + "=0), " + Digits(65536)));
  }

  /// A reference location and an implement.
  void SetUp() {
    static constexpr std::array kDegrees{"47.5", "0",    "-33", "84",    "90",    "-90",
                                         "180",  "-180", "-97", "6.001", "5.999", "1e6"};
    const auto radians = [&] { return std::string(OneOf(kDegrees)) + "/57.2957795130823"; };
    const std::string time = "1400, " + Digits(20000) + ", ";
    Execute("INSERT INTO ReferenceLocationChangeTable VALUES(" + time + radians() + ", " +
            radians() + ", 300)");
    std::string row = time + "'Boom', 1";
    const std::size_t used = input_.Below(17);
    for (std::size_t slot = 0; slot < 16; ++slot) {
      row += slot < used ? ", " + Digits(60) + "/8.0, " + Digits(60) + "/8.0 - 3, 0, 0"
                         : ", -1, 0, 0, 0";
    }
    Execute("INSERT INTO ImplChangeTable VALUES(" + row + ")");
  }

  /// Keys that go forward, backward, or return.
  void ManyChanges() {
    const Table& table = OneOf(Tables());
    std::string row = "1400+n%" + Digits(4) + ", (n*" + Digits(256) + ")%" + Digits(256) + "*100";
    for (std::size_t i = 0; i < table.columns.size(); ++i) row += ", n%" + Digits(4);
    Execute(Counted(Digits(120), std::string(table.name) + " SELECT " + row));
  }

  void InsertRow() {
    const Table& table = OneOf(Tables());
    std::string row = Value() + ", " + Value();
    for (std::size_t i = 0; i < table.columns.size(); ++i) row += ", " + Value();
    Execute("INSERT INTO " + std::string(table.name) + " VALUES(" + row + ")");
  }

  void ReplaceCells() {
    const Table& table = OneOf(Tables());
    const std::string column = Any(table);
    const std::string value = input_.Below(2) == 0 ? Value() : column + OneOf(kOperators) + Value();
    Execute("UPDATE " + std::string(table.name) + " SET " + column + "=" + value + " WHERE rowid%" +
            Digits(8) + "=" + Digits(8));
  }
  static constexpr std::array kOperators{"+", "*", "||", "|", "%"};

  void RepeatRows() {
    const std::string table = OneOf(Tables()).name;
    Execute("INSERT INTO " + table + " SELECT * FROM " + table + " ORDER BY " + Digits(6) +
            (input_.Below(2) == 0 ? "" : " DESC"));
    Execute("DELETE FROM " + table + " WHERE rowid>" + std::to_string(kRowsAtMost));
  }

  /// Tables, columns and their types as nobody declares them.
  void Redefine() {
    const Table& table = OneOf(Tables());
    const std::string column = Any(table);
    const std::string alter = "ALTER TABLE " + std::string(table.name);
    const std::string view = "CREATE VIEW " + std::string(table.name) + " AS ";
    const std::string virtually = "CREATE VIRTUAL TABLE " + std::string(table.name) + " USING ";
    const std::string aside = alter + " RENAME TO aside; ";
    const std::string index = "CREATE INDEX " + column + "x ON " + table.name;
    switch (input_.Below(16)) {
      case 0:
        return Execute(alter + " DROP COLUMN " + column);
      case 1:
        return Execute(alter + " ADD COLUMN more DEFAULT (" + Value() + ")");
      case 2:
        return Execute(alter + " RENAME COLUMN " + column + " TO old; " + alter + " ADD COLUMN " +
                       column + " AS (" + "old" + OneOf(kOperators) + Value() + ")");
      case 3:
        return Execute("DROP TABLE " + std::string(table.name));
      case 4:
        return Execute(aside + view + "SELECT * FROM aside");
      case 5:
        return Execute(aside + view +
                       "WITH RECURSIVE i(n) AS (SELECT 1 UNION ALL SELECT n+1 FROM i) SELECT n "
                       "gpsWeek, n gpsMsec, n e_I_B__B2, n n_I_B__B2, 8192 type FROM i");
      case 6:
        return Execute(aside + virtually + "fts4(" + column + ")");
      case 7:
        return Execute(aside + virtually + "rtree(gpsWeek, gpsMsec, " + column + ")");
      case 8:
        return Execute(index + "(gpsWeek, gpsMsec)");
      case 9:
        return Execute(index + "(gpsWeek DESC, gpsMsec DESC, " + column + ")");
      case 10:
        return Execute(index + "(" + column + ") WHERE " + column + ">" + Value());
      case 11:
        return Execute(index + "(" + column + OneOf(kOperators) + Value() + ")");
      case 12:
        return Execute(aside + "CREATE TABLE " + table.name + " AS SELECT * FROM aside ORDER BY " +
                       column);
      case 13:
        return Execute("CREATE TRIGGER t AFTER INSERT ON " + std::string(table.name) +
                       " BEGIN DELETE FROM " + table.name + "; END");
      case 14:
        return Execute("PRAGMA user_version=-1; PRAGMA application_id=-1");
      default:
        return Execute("VACUUM");
    }
  }

  /// The table anew, with another type for one of its columns or all.
  void Retype() {
    static constexpr std::array kTypes{"text",
                                       "",
                                       "blob",
                                       "integer",
                                       "numeric",
                                       "real",
                                       "text collate rtrim",
                                       "text collate nocase",
                                       "integer not null default 7"};
    const Table& table = OneOf(Tables());
    const std::size_t only = input_.Below(table.columns.size() + 3);
    const std::string type = OneOf(kTypes);
    std::string columns;
    for (std::size_t i = 0; i < table.columns.size() + 2; ++i) {
      columns += i == 0 ? "gpsWeek" : i == 1 ? ", gpsMsec" : ", " + table.columns[i - 2];
      if (only == i || only == table.columns.size() + 2) columns += " " + type;
    }
    static constexpr std::array kEnds{")", ", PRIMARY KEY(gpsWeek, gpsMsec)) WITHOUT ROWID",
                                      ", more, UNIQUE(gpsMsec))"};
    Execute("ALTER TABLE " + std::string(table.name) + " RENAME TO aside; CREATE TABLE " +
            table.name + "(" + columns + OneOf(kEnds));
    Execute("INSERT OR IGNORE INTO " + std::string(table.name) + " SELECT * FROM aside");
    Execute("DROP TABLE aside");
  }

  /// The schema's own words, which its reader takes on trust.
  void Reshape() {
    static constexpr std::array kWords{"integer", "real",         "text",   "gpsWeek", "type",
                                       "TABLE",   "GpsDataTable", "width0", "(",       ","};
    Execute("PRAGMA writable_schema=ON; UPDATE sqlite_master SET sql=replace(sql, '" +
            std::string(OneOf(kWords)) + "', " + Value() + ") WHERE rowid=" + Digits(9));
  }

  Input& input_;
  test::Database database_{":memory:"};
};

}  // namespace

void Run(std::string_view bytes) {
  Input input(bytes);
  TheBench().TakeWholePath(Maker(input).Bytes(), "", "");
}

}  // namespace kestrin::fuzz
