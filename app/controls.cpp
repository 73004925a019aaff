#include "app/controls.h"

#include "app/colours.h"
#include "app/layoutTable.h"
#include "app/pictureBox.h"

namespace kestrin {

namespace {

constexpr int kLargeChange = 800;

QScrollBar* MakeScrollBar(Qt::Orientation orientation, QWidget* parent) {
  auto* bar = new QScrollBar(orientation, parent);
  bar->setPageStep(kLargeChange);
  return bar;
}

std::optional<QColor> ColourOf(TextColour colour) {
  switch (colour) {
    case TextColour::kPlain:
      return std::nullopt;
    case TextColour::kDarkRed:
      return kDarkRed;
    case TextColour::kGrey:
      return kGrey;
    case TextColour::kDarkGrey:
      return kDarkGrey;
  }
  return std::nullopt;
}

Caption* MakeCaption(const ControlSpec& spec, QWidget* parent) {
  auto* caption = new Caption(parent);
  caption->SetPurpose(spec.words);
  caption->SetText(spec.caption);
  caption->SetColour(ColourOf(spec.colour));
  caption->SetBorder(spec.kind == ControlKind::kTrack || spec.kind == ControlKind::kBordered);
  if (spec.kind == ControlKind::kCentred) caption->setAlignment(Qt::AlignHCenter);
  return caption;
}

QWidget* MakeWidget(const ControlSpec& spec, QWidget* parent) {
  switch (spec.kind) {
    case ControlKind::kBox:
      return new QWidget(parent);
    case ControlKind::kFrame:
      return new Frame(spec.caption, parent);
    case ControlKind::kButton:
      return new GraphicalButton(spec.caption, parent);
    case ControlKind::kOption:
      return new OptionButton(spec.caption, parent);
    case ControlKind::kLabel:
    case ControlKind::kCentred:
    case ControlKind::kTrack:
    case ControlKind::kBordered:
      return MakeCaption(spec, parent);
    case ControlKind::kBar:
      return new FilledShape(kDarkBlue, parent);
    case ControlKind::kLine:
      return new FilledShape(kGrey, parent);
    case ControlKind::kPicture:
      return new PictureBox(parent);
    case ControlKind::kImage:
      return new LogoView(parent);
    case ControlKind::kVScroll:
      return MakeScrollBar(Qt::Vertical, parent);
    case ControlKind::kHScroll:
      return MakeScrollBar(Qt::Horizontal, parent);
  }
  return nullptr;
}

void MakeControl(const ControlSpec& spec, QWidget& window) {
  const QString container(spec.parent);
  QWidget* parent = container.isEmpty() ? &window : window.findChild<QWidget*>(container);
  QWidget* widget = MakeWidget(spec, parent);
  widget->setObjectName(spec.name);
  widget->setGeometry(ToPixels(spec.place));
  widget->setFont(WindowFont(spec.font));
  if (qobject_cast<Caption*>(widget) == nullptr) widget->setAccessibleName(spec.words);
  widget->setVisible(spec.visible);
}

template <class Widget>
void Find(const QWidget& window, const char* name, Widget*& widget) {
  widget = window.findChild<Widget*>(name);
  Q_ASSERT(widget != nullptr);
}

template <class Widget>
void Find(const QWidget& window, const char* name, std::array<Widget*, kKindCount>& widgets) {
  for (int i = 0; i < kKindCount; ++i) {
    const QByteArray member = QByteArray(name) + '_' + QByteArray::number(i);
    Find(window, member.constData(), widgets[static_cast<std::size_t>(i)]);
  }
}

}  // namespace

Controls MakeControls(QWidget& window) {
  for (const ControlSpec& spec : LayoutTable()) MakeControl(spec, window);
  Controls controls{};
  Find(window, "VScroll1", controls.VScroll1);
  Find(window, "HScroll1", controls.HScroll1);
  Find(window, "Frame3", controls.Frame3);
  Find(window, "Picture2", controls.Picture2);
  Find(window, "Frame1", controls.Frame1);
  Find(window, "Command3", controls.Command3);
  Find(window, "Label5", controls.Label5);
  Find(window, "Frame4", controls.Frame4);
  Find(window, "Option1", controls.Option1);
  Find(window, "Command4", controls.Command4);
  Find(window, "Label7", controls.Label7);
  Find(window, "Shape1", controls.Shape1);
  Find(window, "Label8", controls.Label8);
  Find(window, "Frame2", controls.Frame2);
  Find(window, "Command1", controls.Command1);
  Find(window, "Label1", controls.Label1);
  Find(window, "Command2", controls.Command2);
  Find(window, "Label9", controls.Label9);
  Find(window, "Shape2", controls.Shape2);
  Find(window, "Label10", controls.Label10);
  Find(window, "Picture1", controls.Picture1);
  Find(window, "Label4", controls.Label4);
  return controls;
}

}  // namespace kestrin
