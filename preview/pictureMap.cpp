#include "preview/pictureMap.h"

#include <cmath>

namespace kestrin::preview {

bool GroundPoint::IsFinite() const { return std::isfinite(x) && std::isfinite(y); }

bool HasArea(const Picture& picture) { return picture.Width() > 0 && picture.Height() > 0; }

PictureMap::PictureMap(const PreviewExtent& extent, const Picture& picture)
    : extent_(extent), scale_(extent.scale) {
  if (scale_ != 0) return;
  scale_ = kNominalScale;
  left_ = picture.Width() / 2;
  top_ = picture.Height() / 2;
}

}  // namespace kestrin::preview
