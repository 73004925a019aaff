#include "tools/sample/implements.h"

namespace kestrin::sample {

ImplementSetup EvenImplement(const std::string& name, int count, double width, double behind) {
  ImplementSetup setup{name, static_cast<double>(count), {}};
  for (int i = 0; i < count; ++i) {
    setup.sections.push_back({width, -behind, width * (i - (count - 1) / 2.0), 0.4});
  }
  return setup;
}

ImplementSetup OddSpreader() {
  return {"Spreader 24 m",
          4,
          {{12.0, -3, -6, 1.1}, {0, -3, -12, 1.1}, {-1, 0, 0, 0}, {37 / 3.0, -3, 6, 1.1}}};
}

}  // namespace kestrin::sample
