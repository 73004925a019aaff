#include "app/print/printFrm.h"

#include <QPainter>
#include <QPrinterInfo>
#include <algorithm>

#include "app/widgets/colours.h"
#include "app/widgets/fonts.h"
#include "app/widgets/logo.h"
#include "app/widgets/noticeText.h"
#include "app/widgets/pictureBox.h"
#include "app/widgets/twips.h"

namespace kestrin::print {

namespace {

constexpr widgets::TwipRect kJobHeading{1920, 840, 615, 375};
constexpr widgets::TwipRect kJobName{2460, 855, 4905, 240};
constexpr widgets::TwipRect kModifiedHeading{1920, 1440, 1575, 375};
constexpr widgets::TwipRect kModified{3585, 1455, 3780, 255};
constexpr widgets::TwipRect kPicture{2040, 2280, 7560, 7560};
constexpr widgets::TwipRect kNotesHeading{2040, 10440, 975, 375};
constexpr widgets::TwipRect kNotes{2040, 10680, 7560, 3375};
constexpr widgets::TwipRect kLogo{6420, 14100, 480, 480};
constexpr widgets::TwipRect kNotice{6960, 14280, 2895, 255};
constexpr QLine kJobLine{2400, 1080, 7320, 1080};
constexpr QLine kModifiedLine{3540, 1680, 7320, 1680};

constexpr widgets::FontSpec kHeadingFont{widgets::Face::kArial, widgets::kLarge, true};
constexpr widgets::FontSpec kNoticeFont{widgets::Face::kTimes, widgets::kSmall, false};

constexpr QRect InTwips(const widgets::TwipRect& rect) {
  return {rect.left, rect.top, rect.width, rect.height};
}

/// Draws the whole text inside its place: narrowed as long as that is enough, then in
/// ever smaller letters that go on in the next line.
void DrawText(QPainter& painter, const widgets::TwipRect& place, const widgets::FontSpec& spec,
              const QString& text, Qt::AlignmentFlag across = Qt::AlignLeft) {
  const auto how =
      static_cast<int>(across | Qt::AlignTop | Qt::TextWrapAnywhere | Qt::TextDontClip);
  QFont font =
      widgets::Fitted(widgets::DesignFont(spec, widgets::kTwipsPerInch), text, place.width);
  painter.setFont(font);
  QRect room = InTwips(place);
  room.setHeight(std::max(room.height(), painter.fontMetrics().height()));
  while (!room.contains(painter.boundingRect(room, how, text)) && font.pixelSize() > 1) {
    font.setPixelSize(font.pixelSize() * 19 / 20);
    painter.setFont(font);
  }
  painter.drawText(room, how, text);
}

void DrawTexts(QPainter& painter, const SheetContent& content) {
  painter.setPen(Qt::black);
  DrawText(painter, kJobHeading, kHeadingFont, "JOB:");
  DrawText(painter, kJobName, kHeadingFont, content.jobName);
  DrawText(painter, kModifiedHeading, kHeadingFont, "LAST MODIFIED:");
  DrawText(painter, kModified, kHeadingFont, content.lastModified);
  DrawText(painter, kNotesHeading, kHeadingFont, "NOTES:");
  painter.setPen(widgets::kDarkGrey);
  DrawText(painter, kNotice, kNoticeFont, widgets::kNoticeText, Qt::AlignHCenter);
}

/// What the queue calls the sheet, so that users find it there.
QString QueueTitle(const QString& jobName) {
  const QString program = "Kestrin";
  return jobName.isEmpty() ? program : jobName + " - " + program;
}

}  // namespace

void DrawJobSheet(QPainter& painter, double unitsPerInch, const SheetContent& content) {
  painter.save();
  painter.scale(unitsPerInch / widgets::kTwipsPerInch, unitsPerInch / widgets::kTwipsPerInch);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (!content.picture.isNull()) painter.drawImage(InTwips(kPicture), content.picture);
  painter.setPen(QPen(Qt::black, widgets::kTwipsPerPixel));
  painter.setBrush(Qt::NoBrush);
  painter.drawLine(kJobLine);
  painter.drawLine(kModifiedLine);
  painter.drawRect(InTwips(kNotes));
  DrawTexts(painter, content);
  widgets::DrawLogo(painter, InTwips(kLogo));
  painter.restore();
}

PrintFrm::PrintFrm(widgets::PictureBox& preview, PrinterSource printers)
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
  printer->setDocName(QueueTitle(content_.jobName));
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

}  // namespace kestrin::print
