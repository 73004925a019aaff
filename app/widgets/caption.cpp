#include "app/widgets/caption.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include "app/widgets/borders.h"
#include "app/widgets/colours.h"
#include "app/widgets/fonts.h"

namespace kestrin::widgets {

namespace {

/// The text as a tool tip of lines at most `width` wide, wherever they must be broken: a
/// long name may have no blank.
QString InLines(const QString& text, const QFont& font, int width) {
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    lines += text.mid(line.textStart(), line.textLength()).toHtmlEscaped();
  }
  layout.endLayout();
  return "<div style='white-space: pre'>" + lines.join("<br>") + "</div>";
}

}  // namespace

Caption::Caption(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void Caption::SetPurpose(const QString& purpose) {
  purpose_ = purpose;
  Describe();
}

void Caption::SetText(const QString& text) {
  setText(text);
  Describe();
  update();
}

void Caption::Describe() {
  setAccessibleName(text().isEmpty() ? purpose_ : purpose_ + ": " + text());
}

QRect Caption::Inside() const {
  constexpr int kBesideBorder = 4;
  return border_ ? rect().adjusted(kBesideBorder, 0, -kBesideBorder, 0) : rect();
}

QFont Caption::ShownFont() const { return Fitted(font(), text(), Inside().width()); }

QString Caption::ShownText() const {
  const QFontMetrics metrics(ShownFont());
  if (metrics.horizontalAdvance(text()) <= Inside().width()) return text();
  return metrics.elidedText(text(), Qt::ElideMiddle, Inside().width());
}

bool Caption::event(QEvent* event) {
  const auto* help = dynamic_cast<QHelpEvent*>(event);
  if (help == nullptr || help->type() != QEvent::ToolTip || ShownText() == text()) {
    return QLabel::event(event);
  }
  QToolTip::showText(help->globalPos(), InLines(text(), QToolTip::font(), width()), this);
  return true;
}

void Caption::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor background = palette().color(QPalette::Window);
  if (border_) DrawBorder(painter, rect(), Readable(kGrey, background));
  if (text().isEmpty()) return;
  painter.setFont(ShownFont());
  painter.setPen(colour_ ? Readable(*colour_, background) : palette().color(QPalette::WindowText));
  const auto across = alignment() & Qt::AlignHorizontal_Mask;
  painter.drawText(Inside(), static_cast<int>(across | (border_ ? Qt::AlignVCenter : Qt::AlignTop)),
                   ShownText());
}

}  // namespace kestrin::widgets
