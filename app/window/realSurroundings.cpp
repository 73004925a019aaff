#include "app/window/realSurroundings.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QScreen>

#include "app/widgets/twips.h"
#include "export/exportKinds.h"
#include "geo/timeZone.h"

namespace kestrin::window {

RealSurroundings::RealSurroundings()
    : files_(base::NativeFileSystem()), drives_(platform::NativeDrives()) {}

Surroundings RealSurroundings::Get() {
  const QSize screen = QGuiApplication::primaryScreen()->size() * widgets::kTwipsPerPixel;
  Surroundings surroundings;
  surroundings.applicationFolder =
      QDir::toNativeSeparators(QCoreApplication::applicationDirPath()).toStdString();
  surroundings.screen = flow::MeasureScreen(screen.width(), screen.height(),
                                            widgets::kTwipsPerPixel, widgets::kTwipsPerPixel);
  surroundings.timeZoneOffset = geo::TimeZoneOffset();
  surroundings.version = BuiltVersion();
  surroundings.kinds = &exports::kExportKinds;
  surroundings.files = files_.get();
  surroundings.drives = drives_.get();
  surroundings.dates = &dates_;
  surroundings.printers = print::DefaultPrinter;
  return surroundings;
}

flow::ProgramVersion BuiltVersion() {
  return {KESTRIN_VERSION_MAJOR, KESTRIN_VERSION_MINOR, KESTRIN_VERSION_REVISION};
}

}  // namespace kestrin::window
