#include "base/byteOrder.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrin::base {
namespace {

TEST(ByteOrder, EachEncoderWritesItsOrderAndReturnsThePlaceBehind) {
  char bytes[18] = {};
  char* out = PutLe16(bytes, 0x0102);
  out = PutLe32(out, 0x03040506);
  out = PutBe32(out, 0x03040506);
  out = PutLeDouble(out, -0.5);
  EXPECT_EQ(out, bytes + 18);
  EXPECT_EQ(std::string(bytes, 18), std::string("\x02\x01\x06\x05\x04\x03\x03\x04\x05\x06"
                                                "\0\0\0\0\0\0\xE0\xBF",
                                                18));
}

TEST(ByteOrder, HighBitsSurvive) {
  char bytes[8] = {};
  PutBe32(PutLe32(bytes, 0xFFFEFDFC), 0xFFFEFDFC);
  EXPECT_EQ(std::string(bytes, 8), "\xFC\xFD\xFE\xFF\xFF\xFE\xFD\xFC");
}

}  // namespace
}  // namespace kestrin::base
