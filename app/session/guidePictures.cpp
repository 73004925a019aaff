#include "app/session/guidePictures.h"

#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "app/print/printFrm.h"
#include "app/widgets/colours.h"
#include "app/widgets/pictureBox.h"
#include "app/window/qtDialogs.h"

namespace kestrin::session {

namespace {

constexpr const char* kKinds[] = {"WIRE", "BOOM", "POLY", "POINT"};

template <class Picture>
void Save(const Picture& picture, const std::string& folder, const char* name) {
  const std::string path = base::WithSeparator(folder) + "guide-" + name + ".png";
  if (!picture.save(QString::fromStdString(path))) {
    std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
  }
}

QFont Bold(int pixels) {
  QFont font("Liberation Sans");
  font.setPixelSize(pixels);
  font.setBold(true);
  return font;
}

void DrawNumber(QPainter& painter, QPoint centre, int number) {
  constexpr int kRadius = 11;
  const QRect disc(centre - QPoint(kRadius, kRadius), QSize(2 * kRadius, 2 * kRadius));
  painter.setPen(Qt::white);
  painter.setBrush(widgets::kDarkRed);
  painter.drawEllipse(disc);
  painter.drawText(disc, Qt::AlignCenter, QString::number(number));
}

/// At the part's right end, or inside of one that is large or ends at the window's border.
QPoint PlaceOfNumber(const QWidget& window, const QWidget& part) {
  constexpr int kLarge = 200;
  constexpr int kBorder = 24;
  const QPoint corner = part.mapTo(&window, QPoint(0, 0));
  if (part.height() > kLarge) return corner + QPoint(kBorder, kBorder);
  const int right = corner.x() + part.width() + 6;
  return {std::min(right, window.width() - kBorder), corner.y() + part.height() / 2};
}

/// The numbers stand in the order in which the guide explains the parts.
void ShootWindow(Session& session, const std::string& folder) {
  constexpr const char* kParts[] = {"Command3",   "Label5",   "Option1_0", "Picture1", "Command4",
                                    "Command1_0", "Label1_0", "Command2",  "Label4"};
  QPixmap picture = session.Window().grab();
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(Bold(13));
  int number = 0;
  for (const char* part : kParts) {
    const auto* widget = session.Window().findChild<QWidget*>(part);
    DrawNumber(painter, PlaceOfNumber(session.Window(), *widget), ++number);
  }
  Save(picture, folder, "window");
}

QImage PreviewOf(Session& session) {
  return session.Window().findChild<widgets::PictureBox*>("Picture1")->Image();
}

void ShootPreviews(Session& session, const std::string& folder) {
  constexpr int kSide = 390;
  constexpr int kCaption = 22;
  QImage all(2 * kSide + 1, 2 * (kSide + kCaption), QImage::Format_RGB32);
  all.fill(Qt::white);
  QPainter painter(&all);
  painter.setFont(Bold(13));
  for (int kind = 0; kind < exports::kKindCount; ++kind) {
    session.Preview(kind);
    const QRect place(kind % 2 * kSide, kind / 2 * (kSide + kCaption) + kCaption, kSide, kSide);
    const QImage preview =
        PreviewOf(session).scaled(place.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    painter.drawImage(place.topLeft(), preview);
    painter.setPen(Qt::gray);
    painter.drawRect(place.adjusted(0, 0, 0, -1));
    painter.setPen(widgets::kDarkRed);
    painter.drawText(place.left() + 4, place.top() - 6, kKinds[kind]);
  }
  Save(all, folder, "previews");
}

void ShootSheet(Session& session, const std::string& folder) {
  constexpr double kDotsPerInch = 64;
  QImage sheet(QSizeF(8.5 * kDotsPerInch, 10.5 * kDotsPerInch).toSize(), QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  painter.setRenderHint(QPainter::TextAntialiasing);
  print::DrawJobSheet(painter, kDotsPerInch, {"North field", "6/3/25", PreviewOf(session)});
  painter.setPen(Qt::gray);
  painter.drawRect(sheet.rect().adjusted(0, 0, -1, -1));
  Save(sheet, folder, "sheet");
}

void ShootQuestion(Session& session, const std::string& folder) {
  constexpr int kUntilDrawn = 500;
  QTimer::singleShot(kUntilDrawn, [&] {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    Save(box->grab(), folder, "question");
    box->close();
  });
  window::QtDialogs(session.Window())
      .AskYesNo("Shape File already exists.  Do you want to overwrite it?");
}

}  // namespace

void ShootGuide(Session& session, const std::string& folder) {
  session.Select();
  ShootPreviews(session, folder);
  session.Preview(2);
  ShootSheet(session, folder);
  session.CreateAll();
  ShootWindow(session, folder);
  ShootQuestion(session, folder);
}

}  // namespace kestrin::session
