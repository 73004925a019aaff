#include <sys/random.h>

#include <cerrno>
#include <random>
#include <system_error>

/// The random numbers of the whole program, the geometry library's too, in place of the C++
/// library's, which are the processor's: all cores wait for its one source of them. GEOS asks
/// for one with each line that it lays on a grid, and two threads that made a sprayer's coverage
/// waited for a third of their time. The kernel's are as good, and no core waits for another.
/// Failure: std::system_error with the kernel's reason.
std::random_device::result_type std::random_device::_M_getval() {
  result_type number = 0;
  if (getentropy(&number, sizeof number) != 0) {
    throw std::system_error(errno, std::generic_category());
  }
  return number;
}
