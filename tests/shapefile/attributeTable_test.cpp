#include "shapefile/attributeTable.h"

#include <gtest/gtest.h>

#include <array>
#include <ctime>

#include "shapefile/numberText.h"

namespace kestrin::shapefile {
namespace {

const std::array<Field, 2> kWireFields{{{"ID", 'N', 8, 0}, {"METERS", 'N', 10, 2}}};

std::string RecordOf(std::span<const Field> fields, std::string_view first, Keep firstKeep,
                     std::string_view second, Keep secondKeep) {
  AttributeRecord record(fields);
  record.Add(first, firstKeep);
  record.Add(second, secondKeep);
  return std::string(record.Bytes());
}

TEST(AttributeTable, HeaderSaysDateCountAndLengths) {
  const std::string header = TableHeader(kWireFields, {2006, 12, 31}, 0x01020304);
  ASSERT_EQ(header.size(), 97U);
  const std::string expected("\x03\x6A\x0C\x1F\x04\x03\x02\x01\x61\x00\x13\x00", 12);
  EXPECT_EQ(header.substr(0, 12), expected);
  EXPECT_EQ(header.substr(12, 20), std::string(20, '\0'));
  EXPECT_EQ(header[96], '\x0D');
}

TEST(AttributeTable, YearByteOf2006Is106) {
  EXPECT_EQ(TableHeader(kWireFields, {2006, 1, 2}, 0)[1], 106);
}

TEST(AttributeTable, DescriptorIsNameTypeWidthAndDecimals) {
  const std::string header = TableHeader(kWireFields, {2006, 1, 2}, 0);
  const std::string id("ID\0\0\0\0\0\0\0\0\0N\0\0\0\0\x08\0", 18);
  const std::string metres("METERS\0\0\0\0\0N\0\0\0\0\x0A\x02", 18);
  EXPECT_EQ(header.substr(32, 32), id + std::string(14, '\0'));
  EXPECT_EQ(header.substr(64, 32), metres + std::string(14, '\0'));
}

TEST(AttributeTable, FieldNameIsCutAtElevenBytes) {
  const std::array<Field, 1> fields{{{"ABCDEFGHIJKLM", 'C', 10, 0}}};
  EXPECT_EQ(TableHeader(fields, {2006, 1, 2}, 0).substr(32, 12), "ABCDEFGHIJKC");
}

TEST(AttributeTable, LengthsOfManyFieldsTakeTwoBytes) {
  const std::vector<Field> fields(40, Field{"F", 'C', 200, 0});
  EXPECT_EQ(RecordLength(fields), 8001U);
  const std::string header = TableHeader(fields, {2006, 1, 2}, 0);
  EXPECT_EQ(header.size(), 32U + 40 * 32 + 1);
  EXPECT_EQ(header.substr(8, 4), "\x21\x05\x41\x1F");
}

TEST(AttributeTable, TextsAreRightJustified) {
  EXPECT_EQ(RecordOf(kWireFields, "0", Keep::kRight, "12.5", Keep::kLeft), "        0      12.5");
}

TEST(AttributeTable, IdOfMoreThanEightDigitsKeepsItsLastEight) {
  EXPECT_EQ(RecordOf(kWireFields, IntegerText(1234567890).View(), Keep::kRight, "1", Keep::kLeft),
            " 34567890         1");
}

TEST(AttributeTable, ValueOfTenOrMoreCharactersKeepsItsFirstTen) {
  EXPECT_EQ(RecordOf(kWireFields, "1", Keep::kRight, "1234567.89", Keep::kLeft),
            "        11234567.89");
  EXPECT_EQ(RecordOf(kWireFields, "1", Keep::kRight, "12345678.91", Keep::kLeft),
            "        112345678.9");
}

TEST(AttributeTable, KeepRightLosesTheLeftmostCharacters) {
  EXPECT_EQ(RecordOf(kWireFields, "1", Keep::kRight, "0.333333333333333", Keep::kRight),
            "        13333333333");
}

TEST(AttributeTable, ClearedRecordKeepsNothingOfTheLast) {
  AttributeRecord record(kWireFields);
  record.Add("12345678", Keep::kLeft);
  record.Add("1234567890", Keep::kLeft);
  record.Clear();
  record.Add("", Keep::kLeft);
  record.Add("7", Keep::kLeft);
  EXPECT_EQ(record.Bytes(), std::string(18, ' ') + "7");
}

TEST(AttributeTable, NameIsItsFirstTenBytes) {
  EXPECT_EQ(NameText(""), "");
  EXPECT_EQ(NameText("Sprayer"), "Sprayer");
  EXPECT_EQ(NameText("Sprayer 36"), "Sprayer 36");
  EXPECT_EQ(NameText("Sprayer 36m"), "Sprayer 36");
}

TEST(AttributeTable, NameIsNotCutInsideACharacter) {
  EXPECT_EQ(NameText("123456789\xC3\xA4"), "123456789");
  for (const char* first : {"\xC2", "\xDF"}) {
    EXPECT_EQ(NameText("123456789" + std::string(first) + "\x80z"), "123456789");
  }
  for (const char* first : {"\xE0", "\xEF"}) {
    EXPECT_EQ(NameText("12345678" + std::string(first) + "\x80\x80z"), "12345678");
  }
  for (const char* first : {"\xF0", "\xF4"}) {
    EXPECT_EQ(NameText("1234567" + std::string(first) + "\x80\x80\x80z"), "1234567");
  }
  // Nor is what looks like one and lacks its end.
  for (const char* name : {"123456789\xE2\x82", "123456789\xC3z\xA4", "123456789a\x80"}) {
    EXPECT_EQ(NameText(name).size(), 10U);
  }
  // What begins no character is a byte like others.
  for (const char* first : {"\xC1", "\xF5"}) {
    EXPECT_EQ(NameText("123456789" + std::string(first) + "\x80\x80\x80").size(), 10U);
  }
  EXPECT_EQ(NameText("12345678\xC3\xA4z"), "12345678\xC3\xA4");
  EXPECT_EQ(NameText("12345678\xE2\x82\xAC"), "12345678");
  EXPECT_EQ(NameText("123456789\xE2\x82\xAC"), "123456789");
  EXPECT_EQ(NameText("1234567\xE2\x82\xACz"), "1234567\xE2\x82\xAC");
  EXPECT_EQ(NameText("1234567\xF0\x9F\x9A\x9C"), "1234567");
  EXPECT_EQ(NameText("123456\xF0\x9F\x9A\x9Cz"), "123456\xF0\x9F\x9A\x9C");
}

/// Older consoles write one byte a character.
TEST(AttributeTable, NameThatIsNoUtf8KeepsItsTenBytes) {
  EXPECT_EQ(NameText("D\xFCngerstreuer"), "D\xFCngerstre");
  EXPECT_EQ(NameText("Feldspr\xFCtze"), "Feldspr\xFCtz");
  EXPECT_EQ(NameText("123456789\xE4y"), "123456789\xE4");
  EXPECT_EQ(NameText("123456789\xE4"), "123456789\xE4");
  EXPECT_EQ(NameText("\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80").size(), 10U);
}

TEST(AttributeTable, TodayIsTheLocalDay) {
  const std::time_t before = std::time(nullptr);
  const CalendarDate today = Today();
  const std::time_t after = std::time(nullptr);
  bool matches = false;
  for (const std::time_t time : {before, after}) {
    const std::tm local = *std::localtime(&time);
    matches = matches || (today.year == local.tm_year + 1900 && today.month == local.tm_mon + 1 &&
                          today.day == local.tm_mday);
  }
  EXPECT_TRUE(matches);
}

}  // namespace
}  // namespace kestrin::shapefile
