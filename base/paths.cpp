#include "base/paths.h"

#include "base/fileSystem.h"

namespace kestrin::base {
namespace {

/// Where the folders of a path begin: behind the server and its share, which are none,
/// in a path over the network.
std::size_t BehindShare(std::string_view path) {
  if (kSeparator != '\\' || !path.starts_with(R"(\\)")) return 0;
  const std::size_t server = path.find(kSeparator, 2);
  if (server == std::string_view::npos) return path.size();
  const std::size_t share = path.find(kSeparator, server + 1);
  return share == std::string_view::npos ? path.size() : share + 1;
}

}  // namespace

SplitPath SplitAtLastSeparator(std::string_view path) {
  const std::size_t last = path.rfind(kSeparator);
  if (last == std::string_view::npos) return {"", std::string(path)};
  return {std::string(path.substr(0, last + 1)), std::string(path.substr(last + 1))};
}

std::string WithSeparator(std::string path) {
  if (path.empty() || path.back() != kSeparator) path += kSeparator;
  return path;
}

void MakePath(FileSystem& files, std::string_view path) {
  if (!path.empty() && path.back() == kSeparator) path.remove_suffix(1);
  const std::size_t root = BehindShare(path);
  if (root > 0 && root == path.size()) return;
  for (std::size_t at = path.find(kSeparator, root); at != std::string_view::npos;
       at = path.find(kSeparator, at + 1)) {
    // Nothing stands before the separator of a path from the root.
    if (at > 0) files.MakeFolder(std::string(path.substr(0, at)));
  }
  if (!path.empty()) files.MakeFolder(std::string(path));
}

}  // namespace kestrin::base
