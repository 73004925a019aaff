#include "app/widgets/pictureBox.h"

#include <QPaintEvent>

#include "app/widgets/colours.h"

namespace kestrin::widgets {

namespace {

QPoint ToQt(preview::PicturePoint point) { return {point.x, point.y}; }

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

QImage PictureBox::Image() {
  if (image_.isNull()) NewImage();
  EndPainting();
  return image_;
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

bool PictureBox::BeginPainting() {
  if (image_.isNull()) NewImage();
  if (image_.isNull()) return false;
  painter_.emplace(&image_);
  brush_.reset();
  // One image pixel to the unit: hard pixels in whole places. Finer images: smooth
  // lines through the middle of those places.
  if (image_.devicePixelRatio() > 1) {
    painter_->setRenderHint(QPainter::Antialiasing);
    painter_->translate(0.5, 0.5);
  }
  return true;
}

QPainter* PictureBox::Painter(preview::Bgr pen) {
  if (painter_ && pen == pen_) return &*painter_;
  // Not when the same pen goes on after a look at the image: where lines are smooth, one
  // drawn twice is darker, and the picture would tell when it was looked at.
  if (pen != pen_) drawn_.Forget();
  if (!painter_ && !BeginPainting()) return nullptr;
  painter_->setPen(FromBgr(pen));
  pen_ = pen;
  return &*painter_;
}

void PictureBox::Fill(std::optional<preview::Bgr> brush) {
  if (brush_ == brush) return;
  brush_ = brush;
  painter_->setBrush(brush ? QBrush(FromBgr(*brush)) : QBrush(Qt::NoBrush));
}

void PictureBox::EndPainting() { painter_.reset(); }

void PictureBox::Polyline(std::span<const preview::PicturePoint> points, preview::Bgr colour) {
  points_.clear();
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0 || points[i] != points[i - 1]) points_.push_back(ToQt(points[i]));
  }
  QPainter* painter = Painter(colour);
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

void PictureBox::Polygon(std::span<const preview::PicturePoint> points, preview::Bgr fill,
                         preview::Bgr outline) {
  QPainter* painter = Painter(outline);
  if (painter == nullptr) return;
  points_.clear();
  for (const preview::PicturePoint& point : points) points_.push_back(ToQt(point));
  Fill(fill);
  painter->drawPolygon(points_.data(), static_cast<int>(points_.size()));
  drawn_.Forget();
}

void PictureBox::Line(preview::PicturePoint from, preview::PicturePoint to, preview::Bgr colour) {
  constexpr std::int32_t kNoRadius = -1;
  QPainter* painter = Painter(colour);
  if (painter == nullptr || drawn_.Contains(from, to, kNoRadius)) return;
  painter->drawLine(ToQt(from), ToQt(to));
}

void PictureBox::Circle(preview::PicturePoint centre, std::int32_t radius, preview::Bgr colour) {
  QPainter* painter = Painter(colour);
  if (painter == nullptr || drawn_.Contains(centre, {}, radius)) return;
  Fill(std::nullopt);
  painter->drawEllipse(ToQt(centre), radius, radius);
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
