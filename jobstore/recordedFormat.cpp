#include "jobstore/recordedFormat.h"

#include "base/text.h"
#include "jobstore/queries.h"

namespace kestrin::jobstore {

std::string RecordedFormat(Job& job) {
  std::int32_t tables = 0;
  std::string newest;
  if (ReadFirst<VersionTableCount>(job, tables) && tables > 0) {
    ReadFirst<NewestVersion>(job, newest);
  }
  return std::string(base::TrimmedBlanks(newest));
}

}  // namespace kestrin::jobstore
