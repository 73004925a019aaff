#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

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

TEST_F(ProgressBar, FailuresAreRedUnlessColourIsRefused) {
  const std::vector<std::string> plain{KESTRIN_EXPORT, "gone.sqlite"};
  const std::string text = " gone.sqlite: Error opening: -14 (no such file)\r\n";
  EXPECT_THAT(test::RunOnTerminal(plain, folder_.Path().string(), 1),
              HasSubstr("\033[31mkestrin-export:\033[0m" + text));
  const std::vector<std::string> refused{"env", "NO_COLOR=1", KESTRIN_EXPORT, "gone.sqlite"};
  const std::string drawn = test::RunOnTerminal(refused, folder_.Path().string(), 1);
  EXPECT_TRUE(drawn.ends_with("kestrin-export:" + text)) << drawn;
  EXPECT_THAT(drawn, Not(HasSubstr("\033[31m")));
}

}  // namespace
}  // namespace kestrin::exporter
