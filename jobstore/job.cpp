#include "jobstore/job.h"

namespace kestrin::jobstore {

void Columns::Text(int column, std::string& text) const {
  const std::int32_t size = library_.linx_getColSize(statement_, column);
  if (size <= 0) return;
  text.assign(static_cast<std::size_t>(size), ' ');
  library_.linx_getText(statement_, column, text);
}

}  // namespace kestrin::jobstore
