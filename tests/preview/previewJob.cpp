#include "tests/preview/previewJob.h"

#include <gtest/gtest.h>

namespace kestrin::test {

std::vector<std::string> PreviewJob::Draw(Renderer renderer, const preview::PreviewState& state) {
  renderer(state, {.line = 1, .fill = 2}, picture, host);
  return picture.Take();
}

std::vector<std::string> PreviewJob::Drawn(Renderer renderer) {
  std::vector<std::string> calls = Draw(renderer, HundredMetres(builder.Finish()));
  if (calls.size() < 2 || calls.front() != "Clear" || calls.back() != "Refresh") {
    ADD_FAILURE() << "not between a clearing and a refresh: " << testing::PrintToString(calls);
    return calls;
  }
  return {calls.begin() + 1, calls.end() - 1};
}

}  // namespace kestrin::test
