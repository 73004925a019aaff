#include "app/realSurroundings.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QScreen>

#include "app/twips.h"
#include "export/exportKinds.h"
#include "geo/timeZone.h"

namespace kestrin {

RealSurroundings::RealSurroundings() : files_(NativeFileSystem()), drives_(NativeDrives()) {}

Surroundings RealSurroundings::Get() {
  const QSize screen = QGuiApplication::primaryScreen()->size() * kTwipsPerPixel;
  Surroundings surroundings;
  surroundings.applicationFolder =
      QDir::toNativeSeparators(QCoreApplication::applicationDirPath()).toStdString();
  surroundings.screen =
      MeasureScreen(screen.width(), screen.height(), kTwipsPerPixel, kTwipsPerPixel);
  surroundings.timeZoneOffset = TimeZoneOffset();
  surroundings.version = BuiltVersion();
  surroundings.kinds = &kExportKinds;
  surroundings.files = files_.get();
  surroundings.drives = drives_.get();
  surroundings.dates = &dates_;
  surroundings.printers = DefaultPrinter;
  return surroundings;
}

ProgramVersion BuiltVersion() {
  return {KESTRIN_VERSION_MAJOR, KESTRIN_VERSION_MINOR, KESTRIN_VERSION_REVISION};
}

}  // namespace kestrin
