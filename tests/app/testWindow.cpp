#include "tests/app/testWindow.h"

#include "export/exportKinds.h"
#include "tests/support/jobBuilder.h"

namespace kestrin::test {

std::optional<std::string> ScriptedDialogs::Take(std::deque<std::string>& from) {
  if (from.empty()) return std::nullopt;
  std::string first = from.front();
  from.pop_front();
  return first;
}

std::optional<std::string> ScriptedDialogs::OpenFile(const flow::FileRequest& request) {
  opened.push_back(request);
  if (whileOpen) whileOpen();
  return Take(toOpen);
}

std::optional<std::string> ScriptedDialogs::SaveFile(const flow::FileRequest& request) {
  saved.push_back(request);
  if (whileOpen) whileOpen();
  return Take(toSave);
}

void ScriptedDialogs::ShowMessage(const std::string& text) {
  messages.push_back(text);
  if (whileOpen) whileOpen();
}

void ScriptedDialogs::ShowWarning(const std::string& title, const std::string& text) {
  warnings.emplace_back(title, text);
  if (whileOpen) whileOpen();
}

bool ScriptedDialogs::AskYesNo(const std::string& text) {
  questions.push_back(text);
  if (whileOpen) whileOpen();
  if (answers.empty()) return false;
  const bool answer = answers.front();
  answers.pop_front();
  return answer;
}

TestWindow::TestWindow(const Change& change) {
  window::Surroundings surroundings;
  surroundings.applicationFolder = folder.Path().string();
  surroundings.screen = {1024, 768};
  surroundings.version = {1, 0, 0};
  surroundings.kinds = &exports::kExportKinds;
  surroundings.dialogs = &dialogs;
  surroundings.files = files.get();
  surroundings.drives = &drives;
  surroundings.dates = &dates;
  surroundings.printers = [] { return nullptr; };
  if (change) change(surroundings);
  window_ = std::make_unique<window::MainFrm>(surroundings);
  window_->show();
  if (!QTest::qWaitForWindowActive(window_.get())) throw std::runtime_error("no window");
}

void TestWindow::Click(const std::string& name) {
  QTest::mouseClick(&Find<>(name), Qt::LeftButton);
}

void TestWindow::Select(const std::string& jobPath) {
  dialogs.toOpen.push_back(jobPath);
  Click("Command3");
}

std::string SmallJob(const TempFolder& folder, const std::string& name, int epochsPerLeg) {
  // Week 355 of the console's count begins on 11 June 2006.
  constexpr int kWeek = 355;
  constexpr int kThursdayNoon = (4 * 24 + 12) * 3600 * 1000;
  constexpr int kStep = 200;
  constexpr double kTurnedRound = 3.14159265358979;
  JobBuilder job(folder / name);
  job.Reference({kWeek, 0}, 45.5, -93.2, 270);
  job.Implement({kWeek, 0}, "Planter", {{6.0, -3.0, 0, 0}, {6.0, 3.0, 0, 0}});
  job.Version({kWeek, 0}, "3.2.8-1");
  for (int i = 0; i < 2 * epochsPerLeg; ++i) {
    const bool back = i >= epochsPerLeg;
    const int along = back ? 2 * epochsPerLeg - 1 - i : i;
    jobstore::EpochRow row;
    row.time = {kWeek, kThursdayNoon + i * kStep};
    row.east = back ? 40 : 0;
    row.north = along * 120.0 / epochsPerLeg;
    row.yaw = back ? kTurnedRound : 0;
    row.speed = 2;
    row.boomStatus = 3;
    row.type = kTakesPart | (i % epochsPerLeg == 0 ? jobstore::EpochRow::kNewStretch : 0);
    job.Epoch(row);
  }
  return job.Finish();
}

}  // namespace kestrin::test
