#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>

#include "tests/support/tempFolder.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Qt's file dialogs remember columns and order: not the user's, nor those of a run before.
  const kestrin::test::TempFolder settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString(settings.Path().string()));
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
