// Takes the documentation's pictures of the window on the current display.

#include <QApplication>
#include <QElapsedTimer>
#include <QPixmap>
#include <QScreen>
#include <QStyleFactory>
#include <cstdio>
#include <string>

#include "app/session/guidePictures.h"
#include "app/session/session.h"

namespace kestrin::session {

namespace {

/// Lets the desktop draw what the window asked for.
void Settle() {
  constexpr int kLongEnough = 300;
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < kLongEnough) QApplication::processEvents(QEventLoop::AllEvents, 20);
}

/// The window with the desktop's border, as it is on screen.
void Shoot(window::MainFrm& window, const std::string& folder, const std::string& name) {
  const QRect frame = window.frameGeometry();
  QPixmap picture =
      window.screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height());
  if (picture.isNull()) picture = window.grab();
  const std::string path = base::WithSeparator(folder) + name + ".png";
  if (!picture.save(QString::fromStdString(path))) {
    std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
  }
}

QPalette DarkPalette() {
  QPalette palette(QColor(0x3C, 0x3C, 0x3C), QColor(0x2B, 0x2B, 0x2B));
  palette.setColor(QPalette::Base, QColor(0x23, 0x23, 0x23));
  return palette;
}

void ShootAll(Session& session, const std::string& folder, const std::string& prefix) {
  const char* kinds[] = {"wire", "boom", "poly", "point"};
  Settle();
  Shoot(session.Window(), folder, prefix + "start");
  session.Select();
  for (const int kind : {0, 1, 3, 2}) {
    session.Preview(kind);
    Settle();
    Shoot(session.Window(), folder, prefix + "preview-" + kinds[kind]);
  }
  // The bar is on screen a few looks after it has its width.
  constexpr int kLooks = 8;
  int looks = 0;
  const auto watch = [&] {
    const auto* bar = session.Window().findChild<QWidget*>("Shape2");
    if (session.Label(2) != "Creating Shape File" || bar->width() < 10) return;
    if (++looks == kLooks) Shoot(session.Window(), folder, prefix + "exporting");
  };
  session.CreateAll(watch);
  Settle();
  Shoot(session.Window(), folder, prefix + "exported");
}

void ShootSmall(Session& session, const std::string& folder) {
  constexpr QSize kSmall(700, 600);
  session.Window().resize(kSmall);
  Settle();
  Shoot(session.Window(), folder, "small-700x600");
}

}  // namespace

int RunScreenshots(const std::string& job, const std::string& scratch, const std::string& folder,
                   const std::string& variant) {
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  if (variant == "dark") QApplication::setPalette(DarkPalette());
  Session session(job, scratch);
  if (variant == "guide") {
    ShootGuide(session, folder);
    return 0;
  }
  ShootAll(session, folder, variant == "plain" ? "" : variant + "-");
  if (variant == "plain") ShootSmall(session, folder);
  return 0;
}

}  // namespace kestrin::session

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 5) {
    std::fprintf(stderr, "usage: kestrin-screenshots JOB SCRATCH-FOLDER PICTURE-FOLDER VARIANT\n");
    return 2;
  }
  return kestrin::session::RunScreenshots(argv[1], argv[2], argv[3], argv[4]);
}
