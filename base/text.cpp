#include "base/text.h"

namespace kestrin::base {

std::string Without(std::string_view text, std::string_view part) {
  std::string result;
  for (std::size_t found = text.find(part); found != std::string_view::npos;
       found = text.find(part)) {
    result += text.substr(0, found);
    text.remove_prefix(found + part.size());
  }
  return result += text;
}

}  // namespace kestrin::base
