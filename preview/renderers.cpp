#include "preview/renderers.h"

#include <iterator>

namespace kestrin::preview {
namespace {

constexpr Bgr kDarkBlue = 0x8C3C00;
constexpr Bgr kMidGreen = 0x5CB86C;
constexpr Bgr kDarkGreen = 0x2E6E1E;

struct Kind {
  Colours colours;
  decltype(&DrawWirePreview) draw;
};

constexpr Kind kKinds[]{
    {{kDarkBlue, kDarkBlue}, DrawWirePreview},
    {{kDarkBlue, kDarkBlue}, DrawBoomPreview},
    {{kDarkGreen, kMidGreen}, DrawPolyPreview},
    {{kDarkBlue, kDarkBlue}, DrawPointPreview},
};

}  // namespace

void DrawPreview(int kind, const PreviewState& state, Picture& picture, base::RunHost& host) {
  if (kind < 0 || kind >= std::ssize(kKinds)) return;
  kKinds[kind].draw(state, kKinds[kind].colours, picture, host);
}

}  // namespace kestrin::preview
