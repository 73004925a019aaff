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
  std::uint32_t ForeColor() const override { return foreColor_; }
  void SetForeColor(std::uint32_t bgr) override;
  std::uint32_t FillColor() const override { return fillColor_; }
  void SetFillColor(std::uint32_t bgr) override;
  void RemovePicture() override;
  void Clear() override;
  void Polyline(std::span<const preview::PicturePoint> points) override;
  void Polygon(std::span<const preview::PicturePoint> points) override;
  void Line(preview::PicturePoint from, preview::PicturePoint to) override;
  void Circle(preview::PicturePoint centre, std::int32_t radius) override;
  void Refresh() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Nothing where there is nothing to draw on.
  QPainter* Painter();
  void EndPainting();
  void NewImage();

  QImage image_;
  std::optional<QPainter> painter_;
  std::vector<QPoint> points_;
  DrawnShapes drawn_;
  std::uint32_t foreColor_ = 0x000000;
  std::uint32_t fillColor_ = 0xFFFFFF;
};

}  // namespace kestrin::widgets
