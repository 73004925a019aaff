#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using ::testing::HasSubstr;

class ProgressBar : public test::ExportCommand {};

TEST_F(ProgressBar, IsDrawnOnATerminalAndWipedAtTheEnd) {
  const std::string job = Sample("North.sqlite", 3000);
  const std::string drawn =
      test::RunOnTerminal({KESTRIN_EXPORT, "--kind", "wire", job}, folder_.Path().string());
  EXPECT_THAT(drawn, HasSubstr("of 3000 rows  wire North"));
  EXPECT_TRUE(drawn.ends_with("\r\033[K")) << drawn;
}

TEST_F(ProgressBar, IsNotDrawnWhenQuiet) {
  const std::string job = Sample("North.sqlite", 3000);
  EXPECT_EQ(test::RunOnTerminal({KESTRIN_EXPORT, "--quiet", "--kind", "wire", job},
                                folder_.Path().string()),
            "");
}

}  // namespace
}  // namespace kestrin::exporter
