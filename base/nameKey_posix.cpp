#include "base/nameKey.h"

namespace kestrin::base {

std::string NameKey(const std::string& name) { return name; }

}  // namespace kestrin::base
