#pragma once

#include <string>
#include <vector>

#include "tests/app/flow/flowTest.h"

namespace kestrin::test {

/// The export commands with the job "/jobs/North.Field.sqlite" selected and the name
/// "/out/a.shp" chosen.
class CommandsTest : public FlowTest {
 protected:
  CommandsTest();

  /// What happened after the controls were disabled, the preview kept, and before they
  /// were enabled again; both are checked.
  std::vector<std::string> Between();

  /// Fails unless all of these calls were made, in this order; others may stand between.
  void ExpectInOrder(const std::vector<std::string>& expected) const;

  const std::string jobPath = Own("/jobs/North.Field.sqlite");
  flow::ExportState& job = state.job;
};

}  // namespace kestrin::test
