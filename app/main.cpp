#include <QApplication>

#include "app/mainFrm.h"
#include "app/realSurroundings.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  kestrin::RealSurroundings surroundings;
  kestrin::MainFrm window(surroundings.Get());
  window.show();
  return QApplication::exec();
}
