#include "tests/support/windowsFiles.h"

#include <windows.h>

#include "base/nativePath.h"
#include "base/systemReason.h"

namespace kestrin::test {

InUse::InUse(const std::string& path, Deleting deleting)
    : handle_(CreateFileW(base::NativePath(path)->c_str(), GENERIC_READ,
                          FILE_SHARE_READ | FILE_SHARE_WRITE |
                              (deleting == Deleting::kAllowed ? FILE_SHARE_DELETE : 0),
                          nullptr, OPEN_EXISTING, 0, nullptr)) {
  EXPECT_NE(handle_, INVALID_HANDLE_VALUE) << path;
}

InUse::~InUse() { CloseHandle(handle_); }

std::string InUse::Reason() { return base::ReasonOf(ERROR_SHARING_VIOLATION); }

}  // namespace kestrin::test
