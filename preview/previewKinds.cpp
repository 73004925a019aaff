#include "preview/previewKinds.h"

#include <cstdint>
#include <iterator>

#include "preview/boomPreview.h"
#include "preview/pointPreview.h"
#include "preview/polyPreview.h"
#include "preview/wirePreview.h"

namespace kestrin::preview {
namespace {

// BGR.
constexpr std::uint32_t kDarkBlue = 0x8C3C00;
constexpr std::uint32_t kMidGreen = 0x5CB86C;
constexpr std::uint32_t kDarkGreen = 0x2E6E1E;

struct PreviewKind {
  std::uint32_t foreColor;
  std::uint32_t fillColor;
  void (*draw)(const PreviewState& state, Picture& picture, base::RunHost& host);
};

constexpr PreviewKind kPreviewKinds[]{
    {kDarkBlue, kDarkBlue, DrawWirePreview},
    {kDarkBlue, kDarkBlue, DrawBoomPreview},
    {kDarkGreen, kMidGreen, DrawPolyPreview},
    {kDarkBlue, kDarkBlue, DrawPointPreview},
};

}  // namespace

void DrawPreview(int kind, const PreviewState& state, Picture& picture, base::RunHost& host) {
  if (kind < 0 || kind >= static_cast<int>(std::size(kPreviewKinds))) return;
  const PreviewKind& preview = kPreviewKinds[kind];
  picture.SetForeColor(preview.foreColor);
  picture.SetFillColor(preview.fillColor);
  preview.draw(state, picture, host);
}

}  // namespace kestrin::preview
