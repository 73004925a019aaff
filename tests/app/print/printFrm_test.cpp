#include "app/print/printFrm.h"

#include <gtest/gtest.h>

#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <algorithm>

#include "tests/app/testWindow.h"

namespace kestrin::print {
namespace {

using test::SmallJob;
using test::TestWindow;

constexpr double kTwipsPerPoint = 20;

/// A printer that writes a PDF file on US Letter paper.
PrintFrm::PrinterSource PdfPrinter(const std::string& path) {
  return [path] {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString::fromStdString(path));
    printer->setPageSize(QPageSize(QPageSize::Letter));
    return printer;
  };
}

QString RunTool(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  process.waitForFinished();
  return process.readAllStandardOutput();
}

struct Word {
  QString text;
  double left = 0, top = 0, right = 0, bottom = 0;  // twips
};

/// The words of a PDF file's page and where they stand.
std::vector<Word> WordsIn(const std::string& path) {
  const QString page = RunTool("pdftotext", {"-bbox", QString::fromStdString(path), "-"});
  const QRegularExpression pattern(
      R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">([^<]*)</word>)re");
  std::vector<Word> words;
  for (auto match = pattern.globalMatch(page); match.hasNext();) {
    const auto found = match.next();
    const auto twips = [&](int group) { return found.captured(group).toDouble() * kTwipsPerPoint; };
    words.push_back({found.captured(5), twips(1), twips(2), twips(3), twips(4)});
  }
  return words;
}

class JobSheetTest : public testing::Test {
 protected:
  void SetUp() override {
    if (QStandardPaths::findExecutable("pdftotext").isEmpty()) GTEST_SKIP() << "no pdftotext";
  }

  const Word& Find(const QString& text) {
    for (const Word& word : words_) {
      if (word.text == text) return word;
    }
    ADD_FAILURE() << "not on the sheet: " << text.toStdString();
    static const Word none;
    return none;
  }

  /// Left and top as designed; the font's own margin stays above the text.
  void ExpectAt(const QString& text, double left, double top) {
    constexpr double kWithin = 60;
    const Word& word = Find(text);
    EXPECT_NEAR(word.left, left, kWithin) << text.toStdString();
    EXPECT_NEAR(word.top, top, kWithin) << text.toStdString();
  }

  /// With no job selected when it has no name.
  void Print(const std::string& jobName = "North.Field") {
    TestWindow window(
        [this](window::Surroundings& around) { around.printers = PdfPrinter(Path()); });
    if (!jobName.empty()) window.Select(SmallJob(window.folder, jobName + ".sqlite"));
    window.Click("Command4");
    words_ = WordsIn(Path());
  }

  /// What stands above the heading of the date but "JOB:", as it is read.
  std::vector<Word> NameWords() {
    constexpr double kWithin = 30;
    const double below = Find("LAST").top - kWithin;
    std::vector<Word> words = words_;
    std::erase_if(words, [&](const Word& word) { return word.top > below || word.text == "JOB:"; });
    std::ranges::sort(words, [](const Word& a, const Word& b) {
      return std::abs(a.top - b.top) > kWithin ? a.top < b.top : a.left < b.left;
    });
    return words;
  }

  /// The whole name is there, in order, and inside its place.
  void ExpectNameInside(const std::string& jobName) {
    Print(jobName);
    QString whole;
    for (const Word& word : NameWords()) {
      whole += word.text;
      EXPECT_GE(word.left, 2460 - 20) << jobName;
      EXPECT_LE(word.right, 2460 + 4905 + 20) << jobName;
      EXPECT_GE(word.top, 855 - 20) << jobName;
      EXPECT_LE(word.bottom, 855 + 240 + 20) << jobName;
    }
    EXPECT_EQ(whole.toStdString(), QString::fromStdString(jobName).remove(' ').toStdString());
  }

  std::string Path() { return folder_ / "sheet.pdf"; }

  test::TempFolder folder_;
  std::vector<Word> words_;
};

TEST_F(JobSheetTest, TextsStandAtTheirPlaces) {
  Print();
  ExpectAt("JOB:", 1920, 840);
  ExpectAt("North.Field", 2460, 855);
  ExpectAt("LAST", 1920, 1440);
  ExpectAt("6/15/2006", 3585, 1455);
  ExpectAt("NOTES:", 2040, 10440);
}

TEST_F(JobSheetTest, NoticeIsCentredInItsPlace) {
  Print();
  const double middle = (Find("Kestrin:").left + Find("exporter").right) / 2;
  EXPECT_NEAR(middle, 6960 + 2895 / 2.0, 40);
  EXPECT_NEAR(Find("Kestrin:").top, 14280, 60);
}

TEST_F(JobSheetTest, HeadingsAreBoldArialOrOneOfItsWidths) {
  Print();
  const QString fonts = RunTool("pdffonts", {QString::fromStdString(Path())});
  EXPECT_TRUE(fonts.contains(QRegularExpression("(Arial|Liberation ?Sans|Arimo).*Bold")))
      << fonts.toStdString();
  // 9.75 points of a font whose line is 1.15 times its size.
  EXPECT_NEAR(Find("NOTES:").bottom - Find("NOTES:").top, 9.75 * 1.15 * kTwipsPerPoint, 30);
}

TEST_F(JobSheetTest, IsOnePage) {
  Print();
  EXPECT_TRUE(RunTool("pdfinfo", {QString::fromStdString(Path())})
                  .contains(QRegularExpression("Pages: +1\\b")));
}

TEST_F(JobSheetTest, PictureAndLinesAreInTheirPlaces) {
  Print();
  RunTool("pdftoppm", {"-r", "96", "-png", "-singlefile", QString::fromStdString(Path()),
                       QString::fromStdString(folder_ / "page")});
  const QImage page(QString::fromStdString(folder_ / "page.png"));
  ASSERT_FALSE(page.isNull());
  const auto dark = [&](double x, double y) {
    int darkest = 255;
    for (int dy = -2; dy <= 2; ++dy) {
      for (int dx = -2; dx <= 2; ++dx) {
        const QPoint at(static_cast<int>(x / 15) + dx, static_cast<int>(y / 15) + dy);
        darkest = std::min(darkest, qGray(page.pixel(at)));
      }
    }
    return darkest < 160;
  };
  EXPECT_TRUE(dark(2400, 1080));
  EXPECT_TRUE(dark(7320, 1080));
  EXPECT_FALSE(dark(7500, 1080));
  EXPECT_TRUE(dark(3540, 1680));
  EXPECT_TRUE(dark(2040, 12000));
  EXPECT_TRUE(dark(9600, 12000));
  EXPECT_TRUE(dark(5000, 10680));
  EXPECT_TRUE(dark(5000, 14055));
  // The job fills its box from north to south but for a margin of five units.
  int drawn = 0;
  const QRect box(2040 / 15, 2280 / 15, 504, 504);
  int top = box.bottom();
  int bottom = box.top();
  for (int y = box.top(); y <= box.bottom(); ++y) {
    for (int x = box.left(); x <= box.right(); ++x) {
      if (qGray(page.pixel(x, y)) > 200) continue;
      ++drawn;
      top = std::min(top, y);
      bottom = std::max(bottom, y);
    }
  }
  EXPECT_GT(drawn, 500);
  EXPECT_NEAR(top, box.top() + 5, 3);
  EXPECT_NEAR(bottom, box.bottom() - 5, 3);
}

TEST_F(JobSheetTest, WholeNameStandsInItsPlaceHoweverLongItIs) {
  ExpectNameInside("North.Field");
  ExpectNameInside("Planting of the north field behind the barn, second half");
  std::string longest;
  while (longest.size() < 248) longest += static_cast<char>('A' + longest.size() % 26);
  ExpectNameInside(longest);
}

TEST_F(JobSheetTest, LongestNameCanBeReadWithTheNakedEye) {
  // As many letters as a file's name can have, of ordinary width.
  std::string longest;
  while (longest.size() < 240) longest += "North field ";
  ExpectNameInside(longest + "end");
  constexpr double kFourPoints = 4 * kTwipsPerPoint;
  for (const Word& word : NameWords()) EXPECT_GE(word.bottom - word.top, kFourPoints);
}

TEST_F(JobSheetTest, WithoutAJobSaysTheZeroDate) {
  Print("");
  ExpectAt("12/30/1899", 3585, 1455);
  ExpectAt("JOB:", 1920, 840);
}

TEST(JobSheet, WithoutAPrinterNothingHappens) {
  TestWindow window;
  window.Select(SmallJob(window.folder));
  window.Click("Command4");
  EXPECT_TRUE(window.dialogs.messages.empty());
  EXPECT_TRUE(window.Enabled("Command4"));
}

/// Prints on the default printer: only where tests/app/cups/run has laid one out.
TEST(JobSheetOnAQueue, IsPrintedOnTheDefaultPrinter) {
  if (!qEnvironmentVariableIsSet("KESTRIN_PRINT")) GTEST_SKIP() << "no printer for tests";
  TestWindow window([](window::Surroundings& around) { around.printers = DefaultPrinter; });
  window.Select(SmallJob(window.folder, "North.QueueTest.sqlite"));
  ASSERT_NE(DefaultPrinter(), nullptr);
  window.Click("Command4");
}

}  // namespace
}  // namespace kestrin::print
