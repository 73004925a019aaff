#pragma once

#include <QFileDialog>
#include <QMessageBox>

namespace kestrin::window {

/// Makes a box with all its texts and buttons wide enough for its title, and lets the text
/// begin at the margin where no icon stands before it.
void LayOutBox(QMessageBox& box);

/// Makes a file dialog of Qt's own wide enough for all its columns and lists the newest
/// files first. The desktop's own dialog is left as it is.
void LayOutFileDialog(QFileDialog& dialog);

}  // namespace kestrin::window
