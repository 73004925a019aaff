#include "tools/export/targetKey.h"

namespace kestrin {

std::string TargetKey(const std::string& path) { return path; }

}  // namespace kestrin
