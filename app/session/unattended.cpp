// Selects a job, looks at its four previews and exports all kinds, in the program's
// own window on no screen; says where the sets and the picture of the window are.

#include <QApplication>
#include <QPixmap>
#include <cstdio>
#include <string>

#include "app/session/session.h"

namespace {

int Run(const std::string& job, const std::string& folder) {
  kestrin::session::Session session(job, folder);
  if (!session.Select()) {
    std::fprintf(stderr, "%s: not a job that can be shown\n", job.c_str());
    return 1;
  }
  for (int kind = kestrin::exports::kKindCount - 1; kind >= 0; --kind) session.Preview(kind);
  const bool all = session.CreateAll();
  const std::string picture = kestrin::base::WithSeparator(folder) + "window.png";
  session.Window().grab().save(QString::fromStdString(picture));
  std::printf("sets:   %s\n", session.Window().State().job.exportFolder.c_str());
  std::printf("window: %s\n", picture.c_str());
  return all ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: kestrin-session JOB FOLDER\n");
    return 2;
  }
  return Run(argv[1], argv[2]);
}
