#pragma once

#include <QScrollBar>
#include <QWidget>
#include <array>

#include "app/buttons.h"
#include "app/caption.h"
#include "app/frame.h"
#include "app/shapes.h"
#include "export/exportKinds.h"

namespace kestrin {

class PictureBox;

/// The controls of the window that change while the program runs, under their
/// names. Owned by the window.
struct Controls {
  QScrollBar* VScroll1;
  QScrollBar* HScroll1;
  QWidget* Frame3;
  QWidget* Picture2;

  Frame* Frame1;
  GraphicalButton* Command3;
  Caption* Label5;

  Frame* Frame4;
  std::array<OptionButton*, kKindCount> Option1;
  GraphicalButton* Command4;
  Caption* Label7;
  FilledShape* Shape1;
  Caption* Label8;

  Frame* Frame2;
  std::array<GraphicalButton*, kKindCount> Command1;
  std::array<Caption*, kKindCount> Label1;
  GraphicalButton* Command2;
  Caption* Label9;
  FilledShape* Shape2;
  Caption* Label10;

  PictureBox* Picture1;
  Caption* Label4;
};

/// Makes every control of the layout table inside the window.
Controls MakeControls(QWidget& window);

}  // namespace kestrin
