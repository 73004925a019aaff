#include "tests/preview/previewJob.h"

#include <gtest/gtest.h>

namespace kestrin::test {

std::vector<std::string> PreviewJob::Drawn(Renderer renderer) {
  renderer(HundredMetres(builder.Finish()), picture, host);
  std::vector<std::string> calls = picture.Take();
  const std::vector<std::string> frame{"RemovePicture", "Clear", "Refresh"};
  if (calls.size() < 3 || calls[0] != frame[0] || calls[1] != frame[1] ||
      calls.back() != frame[2]) {
    ADD_FAILURE() << "not between a clearing and a refresh: " << testing::PrintToString(calls);
    return calls;
  }
  return {calls.begin() + 2, calls.end() - 1};
}

}  // namespace kestrin::test
