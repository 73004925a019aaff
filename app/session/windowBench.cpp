// Measures selecting and previewing a job in the window against the floor: the same
// walks over the job's rows and nothing else.

#include <QApplication>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "app/session/session.h"
#include "jobstore/queries.h"

namespace kestrin::session {

namespace {

using Seconds = std::chrono::duration<double>;

double SecondsOf(const std::function<void()>& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return Seconds(std::chrono::steady_clock::now() - start).count();
}

template <class Epochs>
void Walk(const std::string& path) {
  jobstore::Job job(path);
  jobstore::Query<Epochs> epochs(job);
  for (typename Epochs::Row row; epochs.Next(row);) {
  }
}

void WalkSelection(const std::string& path) {
  {
    jobstore::Job job(path);
    std::int32_t count = 0;
    jobstore::ReadFirst<jobstore::EpochCount>(job, count);
    jobstore::GpsKey newest;
    jobstore::ReadFirst<jobstore::NewestEpoch>(job, newest);
  }
  Walk<jobstore::PreviewBoomEpochs>(path);
  Walk<jobstore::PreviewWireEpochs>(path);
}

void Report(const char* what, double seconds, double floor, const Session& session) {
  const double gap =
      std::chrono::duration<double, std::milli>(session.EventLoop().LongestGap()).count();
  std::printf("%-8s %6.3f s   floor %6.3f s   %4.2f times   longest gap %4.0f ms\n", what, seconds,
              floor, seconds / floor, gap);
}

int Run(const std::string& job, const std::string& folder) {
  Session session(job, folder);
  const double selecting = SecondsOf([&] { session.Select(); });
  Report("select", selecting, SecondsOf([&] { WalkSelection(job); }), session);
  constexpr void (*kWalks[])(const std::string&) = {
      Walk<jobstore::PreviewWireEpochs>, Walk<jobstore::PreviewBoomEpochs>,
      Walk<jobstore::PreviewPolyEpochs>, Walk<jobstore::PreviewPointEpochs>};
  const char* kinds[] = {"wire", "boom", "poly", "point"};
  for (int kind = 0; kind < exports::kKindCount; ++kind) {
    const double seconds = SecondsOf([&] { session.Preview(kind); });
    Report(kinds[kind], seconds, SecondsOf([&] { kWalks[kind](job); }), session);
  }
  const double exporting = SecondsOf([&] { session.CreateAll(); });
  Report("export", exporting, exporting, session);
  return 0;
}

}  // namespace

}  // namespace kestrin::session

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: kestrin-window-bench JOB FOLDER\n");
    return 2;
  }
  return kestrin::session::Run(argv[1], argv[2]);
}
