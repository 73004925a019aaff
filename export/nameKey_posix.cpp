#include "export/nameKey.h"

namespace kestrin {

std::string NameKey(const std::string& name) { return name; }

}  // namespace kestrin
