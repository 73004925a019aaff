#include "app/widgets/caption.h"

#include <gtest/gtest.h>

#include <QCursor>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>

namespace kestrin::widgets {
namespace {

class CaptionTest : public testing::Test {
 protected:
  CaptionTest() {
    window_.resize(300, 100);
    caption_.setGeometry(20, 20, 200, 22);
    caption_.SetBorder(true);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    QTest::mouseMove(&window_, QPoint(5, 5));
  }
  ~CaptionTest() override {
    QToolTip::hideText();
    // Not over the next test's window.
    QCursor::setPos(0, 0);
  }

  /// What a tool tip says once the mouse rests on the caption; nothing where there is none.
  QString TipUnderTheMouse() {
    QTest::mouseMove(&caption_, caption_.rect().center());
    QTest::mouseMove(&caption_, caption_.rect().center() + QPoint(1, 1));
    if (!QTest::qWaitFor([] { return QToolTip::isVisible(); }, 1500)) return {};
    return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
  }

  QWidget window_;
  Caption caption_{&window_};
};

TEST_F(CaptionTest, AShortenedTextIsWholeInTheToolTip) {
  const QString name = "North  <b>&amp; " + QString(200, 'x') + " South";
  caption_.SetText(name);
  ASSERT_NE(caption_.ShownText(), name);
  EXPECT_EQ(TipUnderTheMouse().remove('\n'), name);
}

TEST_F(CaptionTest, ALongToolTipIsInLinesThatFitOnAScreen) {
  caption_.SetText(QString(250, 'W'));
  const QStringList lines = TipUnderTheMouse().split('\n');
  ASSERT_GT(lines.size(), 1);
  for (const QString& line : lines) {
    EXPECT_LE(QFontMetrics(QToolTip::font()).horizontalAdvance(line), caption_.width());
  }
}

TEST_F(CaptionTest, ATextThatShowsWhollyHasNoToolTip) {
  caption_.SetText("North field");
  ASSERT_EQ(caption_.ShownText(), "North field");
  EXPECT_EQ(TipUnderTheMouse(), "");
}

}  // namespace
}  // namespace kestrin::widgets
