#include "preview/pictureMap.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace kestrin {
namespace {

/// The nearest whole unit, if it can be counted.
std::optional<std::int32_t> WholeUnit(double value) {
  const double whole = std::nearbyint(value);
  // Written so that NaN fails it.
  if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
        whole <= std::numeric_limits<std::int32_t>::max())) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(whole);
}

}  // namespace

bool GroundPoint::IsFinite() const { return std::isfinite(x) && std::isfinite(y); }

bool HasArea(const Picture& picture) { return picture.Width() > 0 && picture.Height() > 0; }

PictureMap::PictureMap(const PreviewExtent& extent, const Picture& picture)
    : extent_(extent), scale_(extent.scale) {
  if (scale_ != 0) return;
  scale_ = kNominalScale;
  left_ = picture.Width() / 2;
  top_ = picture.Height() / 2;
}

std::optional<PicturePoint> PictureMap::At(GroundPoint point) const {
  if (!point.IsFinite()) return std::nullopt;
  const auto x = WholeUnit((point.x - extent_.xMin) / scale_ + left_);
  const auto y = WholeUnit((extent_.yMax - point.y) / scale_ + top_);
  if (!x || !y) return std::nullopt;
  return PicturePoint{*x, *y};
}

}  // namespace kestrin
