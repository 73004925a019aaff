#include "app/printFrm.h"

#include <QPainter>
#include <QPrinterInfo>

#include "app/colours.h"
#include "app/fonts.h"
#include "app/logo.h"
#include "app/noticeText.h"
#include "app/pictureBox.h"
#include "app/twips.h"

namespace kestrin {

namespace {

constexpr TwipRect kJobHeading{1920, 840, 615, 375};
constexpr TwipRect kJobName{2460, 855, 4905, 240};
constexpr TwipRect kModifiedHeading{1920, 1440, 1575, 375};
constexpr TwipRect kModified{3585, 1455, 3780, 255};
constexpr TwipRect kPicture{2040, 2280, 7560, 7560};
constexpr TwipRect kNotesHeading{2040, 10440, 975, 375};
constexpr TwipRect kNotes{2040, 10680, 7560, 3375};
constexpr TwipRect kLogo{6420, 14100, 480, 480};
constexpr TwipRect kNotice{6960, 14280, 2895, 255};
constexpr QLine kJobLine{2400, 1080, 7320, 1080};
constexpr QLine kModifiedLine{3540, 1680, 7320, 1680};

constexpr FontSpec kHeadingFont{Face::kArial, kLarge, true};
constexpr FontSpec kNoticeFont{Face::kTimes, kSmall, false};

constexpr QRect InTwips(const TwipRect& rect) {
  return {rect.left, rect.top, rect.width, rect.height};
}

/// The font in twips, which the painter's scale turns into points of the page.
QFont SheetFont(const FontSpec& spec) {
  constexpr int kTwipsPerPoint = 20;
  constexpr int kQuarterPointsPerPoint = 4;
  QFont font = WindowFont(spec);
  font.setPixelSize(spec.quarterPoints * kTwipsPerPoint / kQuarterPointsPerPoint);
  return font;
}

void DrawText(QPainter& painter, const TwipRect& place, const FontSpec& font, const QString& text,
              Qt::AlignmentFlag across = Qt::AlignLeft) {
  painter.setFont(Fitted(SheetFont(font), text, place.width));
  painter.drawText(InTwips(place), static_cast<int>(across | Qt::AlignTop | Qt::TextDontClip),
                   text);
}

void DrawTexts(QPainter& painter, const SheetContent& content) {
  painter.setPen(Qt::black);
  DrawText(painter, kJobHeading, kHeadingFont, "JOB:");
  DrawText(painter, kJobName, kHeadingFont, content.jobName);
  DrawText(painter, kModifiedHeading, kHeadingFont, "LAST MODIFIED:");
  DrawText(painter, kModified, kHeadingFont, content.lastModified);
  DrawText(painter, kNotesHeading, kHeadingFont, "NOTES:");
  painter.setPen(kDarkGrey);
  DrawText(painter, kNotice, kNoticeFont, kNoticeText, Qt::AlignHCenter);
}

}  // namespace

void DrawJobSheet(QPainter& painter, double unitsPerInch, const SheetContent& content) {
  painter.save();
  painter.scale(unitsPerInch / kTwipsPerInch, unitsPerInch / kTwipsPerInch);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (!content.picture.isNull()) painter.drawImage(InTwips(kPicture), content.picture);
  painter.setPen(QPen(Qt::black, kTwipsPerPixel));
  painter.setBrush(Qt::NoBrush);
  painter.drawLine(kJobLine);
  painter.drawLine(kModifiedLine);
  painter.drawRect(InTwips(kNotes));
  DrawTexts(painter, content);
  DrawLogo(painter, InTwips(kLogo));
  painter.restore();
}

PrintFrm::PrintFrm(PictureBox& preview, PrinterSource printers)
    : preview_(preview), printers_(std::move(printers)) {}

void PrintFrm::Load() { content_ = {}; }

void PrintFrm::ClearPicture() { content_.picture = {}; }

void PrintFrm::CopyPreviewPicture() { content_.picture = preview_.Image(); }

void PrintFrm::SetJobName(const std::string& name) {
  content_.jobName = QString::fromStdString(name);
}

void PrintFrm::SetLastModified(const std::string& date) {
  content_.lastModified = QString::fromStdString(date);
}

void PrintFrm::Print() {
  const std::unique_ptr<QPrinter> printer = printers_();
  if (printer == nullptr) return;
  // Places count from the corner of the paper, not of the area the printer reaches.
  printer->setFullPage(true);
  printer->setDocName(content_.jobName);
  QPainter painter;
  if (!painter.begin(printer.get())) return;
  DrawJobSheet(painter, printer->resolution(), content_);
}

void PrintFrm::Unload() { content_ = {}; }

std::unique_ptr<QPrinter> DefaultPrinter() {
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) return nullptr;
  return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

}  // namespace kestrin
