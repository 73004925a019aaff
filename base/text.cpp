#include "base/text.h"

namespace kestrin::base {

std::string Without(std::string_view text, std::string_view part) {
  std::string result;
  for (std::size_t found; (found = text.find(part)) != std::string_view::npos;
       text.remove_prefix(found + part.size())) {
    result += text.substr(0, found);
  }
  return result += text;
}

}  // namespace kestrin::base
