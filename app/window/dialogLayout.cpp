#include "app/window/dialogLayout.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QScreen>
#include <QTreeView>
#include <algorithm>

namespace kestrin::window {

namespace {

/// Qt keeps room between icon and text also where there is no icon.
void DropIconsRoom(QGridLayout& layout) {
  layout.setHorizontalSpacing(0);
  for (int i = 0; i < layout.count(); ++i) {
    QSpacerItem* room = layout.itemAt(i)->spacerItem();
    if (room != nullptr) room->changeSize(0, 1, QSizePolicy::Fixed, QSizePolicy::Fixed);
  }
}

}  // namespace

void LayOutBox(QMessageBox& box) {
  // The window's icon and buttons, and that titles may be bold, on any desktop.
  constexpr int kBesideTitle = 160;
  auto* layout = qobject_cast<QGridLayout*>(box.layout());
  if (layout == nullptr) return;
  const int column = layout->columnCount() - 1;
  layout->setColumnMinimumWidth(
      column, box.fontMetrics().horizontalAdvance(box.windowTitle()) + kBesideTitle);
  layout->setColumnStretch(column, 1);
  if (box.icon() == QMessageBox::NoIcon) DropIconsRoom(*layout);
}

void LayOutFileDialog(QFileDialog& dialog) {
  constexpr int kName = 0;
  constexpr int kModified = 3;
  constexpr int kCharacters = 120;
  auto* list = dialog.findChild<QTreeView*>("treeView");
  if (list == nullptr) return;
  dialog.setViewMode(QFileDialog::Detail);
  QHeaderView& columns = *list->header();
  columns.setSectionResizeMode(QHeaderView::ResizeToContents);
  columns.setSectionResizeMode(kName, QHeaderView::Stretch);
  list->sortByColumn(kModified, Qt::DescendingOrder);
  const int width = kCharacters * dialog.fontMetrics().averageCharWidth();
  const QSize hint = dialog.sizeHint();
  dialog.resize(QSize(std::max(width, hint.width()), hint.height())
                    .boundedTo(dialog.screen()->availableSize()));
}

}  // namespace kestrin::window
