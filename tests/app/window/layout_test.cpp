#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QScrollBar>
#include <QTimer>

#include "app/widgets/colours.h"
#include "app/window/layoutTable.h"
#include "tests/app/testWindow.h"

namespace kestrin::window {
namespace {

using test::TestWindow;

struct Place {
  const char* name;
  const char* container;
  int left, top, width, height;  // twips
};

constexpr Place kPlaces[] = {
    {"Picture2", "MainFrm", 0, 0, 11880, 8100},     {"Frame4", "Picture2", 60, 1320, 4125, 2175},
    {"Command4", "Frame4", 2280, 840, 1575, 615},   {"Option1_3", "Frame4", 480, 1800, 1215, 255},
    {"Option1_2", "Frame4", 480, 1320, 1215, 255},  {"Option1_1", "Frame4", 480, 840, 1215, 255},
    {"Option1_0", "Frame4", 480, 360, 1215, 255},   {"Label8", "Frame4", 2280, 1695, 1575, 255},
    {"Label7", "Frame4", 2280, 1920, 1575, 150},    {"Frame2", "Picture2", 60, 3720, 4125, 3735},
    {"Command1_0", "Frame2", 120, 360, 1455, 495},  {"Command1_1", "Frame2", 120, 1200, 1455, 495},
    {"Command1_2", "Frame2", 120, 2040, 1455, 495}, {"Command1_3", "Frame2", 120, 2880, 1455, 495},
    {"Command2", "Frame2", 2280, 1560, 1575, 615},  {"Label10", "Frame2", 2280, 2535, 1575, 255},
    {"Label9", "Frame2", 2280, 2760, 1575, 150},    {"Label1_0", "Frame2", 120, 855, 1455, 255},
    {"Label1_1", "Frame2", 120, 1695, 1455, 255},   {"Label1_2", "Frame2", 120, 2535, 1455, 255},
    {"Label1_3", "Frame2", 120, 3375, 1455, 255},   {"Frame1", "Picture2", 60, 0, 2010, 1140},
    {"Command3", "Frame1", 270, 435, 1455, 615},    {"Label3", "Frame1", 270, 135, 1455, 375},
    {"Label5", "Picture2", 2070, 90, 9750, 330},    {"Picture1", "Picture2", 4260, 480, 7560, 7560},
    {"Label6", "Picture2", 4260, 480, 7560, 7560},  {"Label4", "Picture2", 720, 7560, 2895, 255},
    {"Label2", "Picture2", 720, 7800, 2895, 255},
};

TEST(Layout, EveryControlStandsWhereItWasDesigned) {
  TestWindow window;
  EXPECT_EQ(window->size(), QSize(792, 540));
  EXPECT_EQ(window->windowTitle(), "Kestrin");
  for (const Place& place : kPlaces) {
    const QWidget& widget = window.Find<>(place.name);
    EXPECT_EQ(widget.parentWidget()->objectName().toStdString(), place.container) << place.name;
    const QRect pixels(place.left / 15, place.top / 15, place.width / 15, place.height / 15);
    EXPECT_EQ(widget.geometry(), pixels) << place.name;
  }
}

TEST(Layout, ProgressFillsStartAtTheirTracks) {
  TestWindow window;
  EXPECT_EQ(window.Find<>("Shape1").geometry().topLeft(), QPoint(152, 128));
  EXPECT_EQ(window.Find<>("Shape1").height(), 10);
  EXPECT_EQ(window.Find<>("Shape2").geometry().topLeft(), QPoint(152, 184));
  EXPECT_EQ(window.Find<>("Shape2").height(), 10);
}

TEST(Layout, CaptionsAreAsDesigned) {
  TestWindow window;
  const char* kinds[] = {"WIRE", "BOOM", "POLY", "POINT"};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(window.Button("Command1_" + std::to_string(i)).text(), kinds[i]);
    EXPECT_EQ(window.Option(i).text(), kinds[i]);
    EXPECT_EQ(window.Text("Label1_" + std::to_string(i)), "");
  }
  EXPECT_EQ(window.Button("Command2").text(), "CREATE ALL");
  EXPECT_EQ(window.Button("Command3").text(), "SELECT");
  EXPECT_EQ(window.Button("Command4").text(), "PRINT");
  EXPECT_EQ(window.Text("Label3"), "CURRENT JOB");
  EXPECT_EQ(window.Text("Label8"), "Loading Preview");
  EXPECT_EQ(window.Text("Label4"), "Kestrin Version  1.0.0");
  EXPECT_EQ(window.Text("Label2"), "Kestrin: job viewer and shape file exporter");
}

TEST(Layout, ProgressIndicatorsAreHiddenAtFirst) {
  TestWindow window;
  for (const char* name : {"Label7", "Shape1", "Label8", "Label9", "Shape2", "Label10"}) {
    EXPECT_FALSE(window.Find<>(name).isVisible()) << name;
  }
}

TEST(Layout, LinesAndBordersAreTheDesignsGreyOnALightDesktop) {
  TestWindow window;
  const QImage shown = window->grab().toImage();
  const double scale = shown.devicePixelRatio();
  const auto at = [&](const char* name, QPointF place) {
    const QPointF inWindow = window.Find<>(name).mapTo(&*window, QPointF(0, 0)) + place;
    const QPoint pixel((inWindow * scale).toPoint());
    return shown.pixelColor(pixel);
  };
  for (const char* line : {"Line1", "Line2_0", "Line2_3", "Line2_4"}) {
    EXPECT_EQ(at(line, {0, 0}), widgets::kGrey) << line;
  }
  for (const char* box : {"Label5", "Label6", "Frame1"}) {
    EXPECT_EQ(at(box, {0, 9}), widgets::kGrey) << box;
    EXPECT_EQ(at(box, {0, 0}), widgets::kGrey) << box;
  }
  EXPECT_EQ(at("Frame2", {0, 100}), widgets::kGrey);
}

TEST(Layout, BracketJoinsEveryKindButtonToCreateAll) {
  TestWindow window;
  const QRect upright = window.Find<>("Line1").geometry();
  for (int i = 0; i < 4; ++i) {
    const QRect stub = window.Find<>("Line2_" + std::to_string(i)).geometry();
    const QRect button = window.Button("Command1_" + std::to_string(i)).geometry();
    EXPECT_EQ(stub.left(), button.right() + 1);
    EXPECT_EQ(stub.right() + 1, upright.left());
    EXPECT_NEAR(stub.center().y(), button.center().y(), 1);
    EXPECT_TRUE(upright.top() <= stub.top() && stub.bottom() <= upright.bottom());
  }
  const QRect last = window.Find<>("Line2_4").geometry();
  const QRect all = window.Button("Command2").geometry();
  EXPECT_EQ(last.left(), upright.left());
  EXPECT_EQ(last.right() + 1, all.left());
  EXPECT_NEAR(last.center().y(), all.center().y(), 1);
}

TEST(Layout, TimersAreOffWithTheirIntervals) {
  TestWindow window;
  const std::pair<const char*, int> timers[] = {
      {"Timer2", 3000}, {"TimerPreview", 10}, {"TimerShape", 100}};
  for (const auto& [name, interval] : timers) {
    EXPECT_EQ(window.Find<QTimer>(name).interval(), interval) << name;
    EXPECT_FALSE(window.Find<QTimer>(name).isActive()) << name;
  }
}

TEST(Layout, FontsAreBoldExceptInTheTwoLinesAtTheBottom) {
  TestWindow window;
  for (const ControlSpec& spec : LayoutTable()) {
    if (spec.caption[0] == '\0') continue;
    const std::string name = spec.name;
    EXPECT_EQ(window.Find<>(name).font().bold(), name != "Label4" && name != "Label2") << name;
  }
  EXPECT_EQ(window.Find<>("Command3").font().pixelSize(), 13);
  EXPECT_EQ(window.Find<>("Label5").font().pixelSize(), 13);
  EXPECT_EQ(window.Find<>("Command1_0").font().pixelSize(), 11);
  EXPECT_EQ(window.Find<>("Label2").font().pixelSize(), 11);
}

/// Every text a control may show, at most as wide and high as the control.
TEST(Layout, NoCaptionIsCutOff) {
  TestWindow window;
  const auto expectFits = [&](const std::string& name, const char* text) {
    auto& label = window.Find<widgets::Caption>(name);
    label.SetText(text);
    const QFontMetrics metrics(label.ShownFont());
    EXPECT_EQ(label.ShownText().toStdString(), text) << name;
    EXPECT_LE(metrics.horizontalAdvance(text), label.width()) << name;
    EXPECT_LE(metrics.height(), label.height()) << name;
    EXPECT_GE(label.ShownFont().stretch() == 0 ? 100 : label.ShownFont().stretch(), 85) << name;
  };
  for (const char* text :
       {"Shape File Exists", "Creating Shape File", "Shape File Created", "Error Creating File"}) {
    expectFits("Label1_2", text);
  }
  for (const char* text : {"Creating Wire Shape", "Creating Boom Shape", "Creating Poly Shape",
                           "Creating Point Shape"}) {
    expectFits("Label10", text);
  }
  for (const char* name : {"Label2", "Label3", "Label4", "Label8"}) {
    expectFits(name, QByteArray::fromStdString(window.Text(name)));
  }
  for (auto* button : window->findChildren<QAbstractButton*>()) {
    const int width = QFontMetrics(button->font()).horizontalAdvance(button->text());
    EXPECT_LE(width, button->width() - 8) << button->objectName().toStdString();
  }
}

TEST(Layout, EveryInteractiveControlSaysInWordsWhatItDoes) {
  TestWindow window;
  for (auto* button : window->findChildren<QAbstractButton*>()) {
    const QString words = button->accessibleName();
    EXPECT_TRUE(words.contains(' ')) << button->objectName().toStdString();
    EXPECT_NE(words, button->text());
  }
  EXPECT_EQ(window.Button("Command1_0").accessibleName(), "Export wire shape file");
}

TEST(Layout, StatusLabelsSpeakTheirPurposeAndTheirText) {
  TestWindow window;
  auto& label = window.Find<widgets::Caption>("Label1_2");
  EXPECT_EQ(label.accessibleName(), "Polygon shape file");
  label.SetText("Shape File Created");
  EXPECT_EQ(label.accessibleName(), "Polygon shape file: Shape File Created");
}

TEST(Layout, ALongJobNameIsShortenedInTheMiddleOnly) {
  TestWindow window;
  auto& label = window.Find<widgets::Caption>("Label5");
  const QString name = "Start " + QString(300, 'x') + " End";
  label.SetText(name);
  EXPECT_EQ(label.text(), name);
  EXPECT_TRUE(label.ShownText().startsWith("Start"));
  EXPECT_TRUE(label.ShownText().endsWith("End"));
}

}  // namespace
}  // namespace kestrin::window
