#include "app/platform/scrollBarHook.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

namespace kestrin {

namespace {

class PassAll : public QAbstractNativeEventFilter {
 public:
  bool nativeEventFilter(const QByteArray&, void*, qintptr*) override { return false; }
};

PassAll& TheFilter() {
  static PassAll filter;
  return filter;
}

}  // namespace

void ScrollBar::Hook(std::uintptr_t) {
  if (hooked_ || QCoreApplication::instance() == nullptr) return;
  QCoreApplication::instance()->installNativeEventFilter(&TheFilter());
  hooked_ = true;
}

void ScrollBar::Unhook() {
  if (!hooked_) return;
  if (auto* application = QCoreApplication::instance()) {
    application->removeNativeEventFilter(&TheFilter());
  }
  hooked_ = false;
}

}  // namespace kestrin
