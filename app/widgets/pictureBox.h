#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <optional>
#include <vector>

#include "app/widgets/drawnShapes.h"
#include "preview/picture.h"

namespace kestrin::widgets {

/// The preview area: a picture that is drawn once, kept, and copied to the screen
/// whenever the screen needs it. A picture unit is a window pixel; the kept image
/// has the resolution of the screen the window is on.
class PictureBox : public QWidget, public preview::Picture {
  Q_OBJECT

 public:
  explicit PictureBox(QWidget* parent);

  /// What has been drawn.
  QImage Image();

  double Width() const override { return width(); }
  double Height() const override { return height(); }
  void Clear() override;
  void Polyline(std::span<const preview::PicturePoint> points, preview::Bgr colour) override;
  void Polygon(std::span<const preview::PicturePoint> points, preview::Bgr fill,
               preview::Bgr outline) override;
  void Line(preview::PicturePoint from, preview::PicturePoint to, preview::Bgr colour) override;
  void Circle(preview::PicturePoint centre, std::int32_t radius, preview::Bgr colour) override;
  void Refresh() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The painter with a pen of that colour; nothing where there is nothing to draw on.
  QPainter* Painter(preview::Bgr pen);
  /// Fills what the painter draws next, or leaves it empty.
  void Fill(std::optional<preview::Bgr> brush);
  /// False where there is nothing to draw on.
  bool BeginPainting();
  void EndPainting();
  void NewImage();

  QImage image_;
  std::optional<QPainter> painter_;
  /// The painter's, set only when they change: that costs more than a short line.
  preview::Bgr pen_ = 0;
  std::optional<preview::Bgr> brush_;
  std::vector<QPoint> points_;
  /// In the pen's colour.
  DrawnShapes drawn_;
};

}  // namespace kestrin::widgets
