#pragma once

#include <QImage>
#include <QPrinter>
#include <QString>
#include <functional>
#include <memory>

#include "app/flow/ports.h"

class QPainter;

namespace kestrin::widgets {
class PictureBox;
}

namespace kestrin::print {

/// What a job sheet says.
struct SheetContent {
  QString jobName;
  QString lastModified;
  QImage picture;
};

/// Draws the job sheet: every part at its place in twips from the painter's origin.
/// `unitsPerInch` is the painter's resolution. Texts stay texts, lines stay lines.
void DrawJobSheet(QPainter& painter, double unitsPerInch, const SheetContent& content);

/// The job sheet: filled from the window, printed, discarded; never on screen.
class PrintFrm final : public flow::JobSheet {
 public:
  /// Makes the printer to print on; nothing when there is none.
  using PrinterSource = std::function<std::unique_ptr<QPrinter>()>;

  PrintFrm(widgets::PictureBox& preview, PrinterSource printers);

  void Load() override;
  void ClearPicture() override;
  void CopyPreviewPicture() override;
  void SetJobName(const std::string& name) override;
  void SetLastModified(const std::string& date) override;
  void Print() override;
  void Unload() override;

 private:
  widgets::PictureBox& preview_;
  PrinterSource printers_;
  SheetContent content_;
};

/// The desktop's default printer.
std::unique_ptr<QPrinter> DefaultPrinter();

}  // namespace kestrin::print
