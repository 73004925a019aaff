#include "jobstore/opening/immutableUri.h"

namespace kestrin::opening {

std::string ImmutableUri(std::string_view path) {
  // Every byte that is not plain is escaped, so '?', '#' and '%' in a name stay part of it.
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/:";
  constexpr std::string_view kHex = "0123456789ABCDEF";
  // An empty authority, then a path with its root. "C:/..." and "\\?\..." have none of
  // their own; SQLite takes the one before them away again.
  std::string uri = path.starts_with('/') ? "file://" : "file:///";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (kPlain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += {'%', kHex[byte >> 4], kHex[byte & 15]};
    }
  }
  return uri + "?immutable=1";
}

}  // namespace kestrin::opening
