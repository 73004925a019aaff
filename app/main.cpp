#include <QApplication>

#include "app/window/mainFrm.h"
#include "app/window/realSurroundings.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  kestrin::window::RealSurroundings surroundings;
  kestrin::window::MainFrm window(surroundings.Get());
  window.show();
  return QApplication::exec();
}
