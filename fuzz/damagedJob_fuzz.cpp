// Jobs of a console with damaged pages, logs and journals, taken through all that the program
// does with one. An input says which job and how it is damaged: docs/fuzzing.md.

#include <algorithm>
#include <array>
#include <string>

#include "fuzz/input.h"
#include "fuzz/realJobs.h"
#include "fuzz/wholePath.h"

namespace kestrin::fuzz {
namespace {

constexpr std::size_t kPage = 512;

/// Damages one of a job's files by what an input says.
class Damage {
 public:
  Damage(Input& input, std::string& bytes) : input_(input), bytes_(bytes) {}

  void Do() {
    switch (input_.Below(8)) {
      case 0:
        return Put(Place());
      case 1:
        return Put(Page() + input_.Below(16));  // what a page is, and its counts
      case 2:
        return Put(Page() + 8 + input_.Below(64));  // where its cells begin
      case 3:
        return Put(4 * input_.Below(25));  // of the file's header
      case 4:
        return Copy();
      case 5:
        return bytes_.resize(Place());
      case 6:
        return void(bytes_.insert(Place(), input_.Text(64)));
      default:
        return Child();
    }
  }

 private:
  std::size_t Page() { return kPage * input_.Below(bytes_.size() / kPage + 1); }
  std::size_t Place() { return std::min(Page() + input_.Below(kPage), bytes_.size()); }

  void Put(std::size_t at) {
    const std::size_t size = 1 + input_.Below(4);
    for (std::size_t i = at; i < std::min(at + size, bytes_.size()); ++i) {
      bytes_[i] = static_cast<char>(input_.Number(1));
    }
  }

  /// A page over another, or between two.
  void Copy() {
    const std::string page = bytes_.substr(Page(), kPage);
    const std::size_t to = Page();
    bytes_.replace(to, input_.Below(2) * kPage, page);
  }

  /// A page becomes the last one below another.
  void Child() {
    const std::size_t at = Page() + 8;
    if (at + 4 > bytes_.size()) return;
    bytes_.replace(at, 4, {0, 0, 0, static_cast<char>(input_.Number(1))});
  }

  Input& input_;
  std::string& bytes_;
};

}  // namespace

void Run(std::string_view bytes) {
  static const std::vector<RealJob> jobs = RealJobs();
  Input input(bytes);
  RealJob job = jobs[input.Below(jobs.size())];
  const bool mended = input.Below(4) > 0;
  while (!input.Ended()) Damage(input, input.Below(2) == 0 ? job.job : job.beside).Do();
  if (mended) MendSums(job);
  TheBench().TakeWholePath(job.job, job.suffix, job.beside);
}

}  // namespace kestrin::fuzz
