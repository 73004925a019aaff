#include "app/widgets/pictureBox.h"

#include <QPaintEvent>

#include "app/widgets/colours.h"

namespace kestrin::widgets {

namespace {

constexpr preview::PicturePoint kNoPoint{};

QPoint ToQt(preview::PicturePoint point) { return {point.x, point.y}; }

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

QImage PictureBox::Image() {
  if (image_.isNull()) NewImage();
  EndPainting();
  return image_;
}

void PictureBox::SetForeColor(std::uint32_t bgr) {
  if (bgr == foreColor_) return;
  foreColor_ = bgr;
  drawn_.Forget();
  if (painter_) painter_->setPen(FromBgr(bgr));
}

void PictureBox::SetFillColor(std::uint32_t bgr) {
  if (bgr == fillColor_) return;
  fillColor_ = bgr;
  if (painter_) painter_->setBrush(FromBgr(bgr));
}

void PictureBox::RemovePicture() {
  EndPainting();
  image_ = {};
  drawn_.Forget();
}

void PictureBox::Clear() {
  EndPainting();
  NewImage();
  drawn_.Forget();
  update();
}

void PictureBox::NewImage() {
  const double ratio = devicePixelRatioF();
  image_ = QImage(size() * ratio, QImage::Format_RGB32);
  image_.setDevicePixelRatio(ratio);
  image_.fill(Qt::white);
}

QPainter* PictureBox::Painter() {
  if (painter_) return &*painter_;
  if (image_.isNull()) NewImage();
  if (image_.isNull()) return nullptr;
  painter_.emplace(&image_);
  painter_->setPen(FromBgr(foreColor_));
  painter_->setBrush(FromBgr(fillColor_));
  // One image pixel to the unit: hard pixels in whole places. Finer images: smooth
  // lines through the middle of those places.
  if (image_.devicePixelRatio() > 1) {
    painter_->setRenderHint(QPainter::Antialiasing);
    painter_->translate(0.5, 0.5);
  }
  return &*painter_;
}

void PictureBox::EndPainting() { painter_.reset(); }

void PictureBox::Polyline(std::span<const preview::PicturePoint> points) {
  points_.clear();
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0 || points[i] != points[i - 1]) points_.push_back(ToQt(points[i]));
  }
  QPainter* painter = Painter();
  if (painter == nullptr || points_.empty()) return;
  if (points_.size() == 1) {
    painter->drawPoint(points_.front());
  } else if (image_.devicePixelRatio() > 1) {
    // One smooth outline of many thousand points costs the square of their number.
    for (std::size_t i = 1; i < points_.size(); ++i) painter->drawLine(points_[i - 1], points_[i]);
  } else {
    painter->drawPolyline(points_.data(), static_cast<int>(points_.size()));
  }
}

void PictureBox::Polygon(std::span<const preview::PicturePoint> points) {
  points_.clear();
  for (const preview::PicturePoint& point : points) points_.push_back(ToQt(point));
  drawn_.Forget();
  QPainter* painter = Painter();
  if (painter != nullptr) painter->drawPolygon(points_.data(), static_cast<int>(points_.size()));
}

void PictureBox::Line(preview::PicturePoint from, preview::PicturePoint to) {
  constexpr std::int32_t kNoRadius = -1;
  if (drawn_.Contains(from, to, kNoRadius)) return;
  QPainter* painter = Painter();
  if (painter != nullptr) painter->drawLine(ToQt(from), ToQt(to));
}

void PictureBox::Circle(preview::PicturePoint centre, std::int32_t radius) {
  if (drawn_.Contains(centre, kNoPoint, radius)) return;
  QPainter* painter = Painter();
  if (painter == nullptr) return;
  painter->setBrush(Qt::NoBrush);
  painter->drawEllipse(ToQt(centre), radius, radius);
  painter->setBrush(FromBgr(fillColor_));
}

void PictureBox::Refresh() {
  EndPainting();
  update();
}

void PictureBox::paintEvent(QPaintEvent*) {
  EndPainting();
  QPainter painter(this);
  if (image_.isNull()) {
    painter.fillRect(rect(), Qt::white);
  } else {
    painter.drawImage(rect(), image_);
  }
}

}  // namespace kestrin::widgets
