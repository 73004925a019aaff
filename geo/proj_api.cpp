#include "geo/proj_api.h"

#include <proj.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace kestrin {
namespace {

struct Definition {
  std::string text;
  PJ* operation = nullptr;  // null: geographic
};

struct ThreadDefinitions {
  PJ_CONTEXT* context = proj_context_create();
  std::vector<Definition> definitions;
  ThreadDefinitions() {
    proj_log_func(context, nullptr, [](void*, int, const char*) {});
  }
  ~ThreadDefinitions() {
    for (auto& d : definitions) proj_destroy(d.operation);
    proj_context_destroy(context);
  }
};

ThreadDefinitions& Mine() {
  thread_local ThreadDefinitions mine;
  return mine;
}

}  // namespace

std::int32_t pjInitPlus(const char* definition) {
  auto& mine = Mine();
  for (std::size_t i = 0; i < mine.definitions.size(); ++i) {
    if (std::strcmp(mine.definitions[i].text.c_str(), definition) == 0) {
      return static_cast<std::int32_t>(i + 1);
    }
  }
  Definition made{definition, nullptr};
  if (std::strncmp(definition, "+proj=utm +zone=", 16) == 0) {
    const std::string zone = std::to_string(std::atoi(definition + 16));
    made.operation = proj_create(mine.context, ("+proj=utm +zone=" + zone +
                                                " +ellps=GRS80 +algo=poder_engsager")
                                                   .c_str());
    if (made.operation == nullptr) return 0;
  }
  mine.definitions.push_back(made);
  return static_cast<std::int32_t>(mine.definitions.size());
}

std::int32_t pjTransform(std::int32_t source, std::int32_t destination, std::int32_t pointCount,
                         std::int32_t pointOffset, double* x, double* y, double*) {
  auto& mine = Mine();
  PJ* from = mine.definitions[static_cast<std::size_t>(source - 1)].operation;
  PJ* to = mine.definitions[static_cast<std::size_t>(destination - 1)].operation;
  for (std::int32_t i = 0; i < pointCount; ++i, x += pointOffset, y += pointOffset) {
    PJ_COORD point = proj_coord(*x, *y, 0, 0);
    if (from != nullptr) point = proj_trans(from, PJ_INV, point);
    if (to != nullptr) point = proj_trans(to, PJ_FWD, point);
    if (point.xy.x == HUGE_VAL) return 1;
    *x = point.xy.x;
    *y = point.xy.y;
  }
  return 0;
}

void pjFree(std::int32_t) {}

}  // namespace kestrin
