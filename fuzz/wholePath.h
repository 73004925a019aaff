#pragma once

#include <filesystem>
#include <string>

namespace kestrin::fuzz {

/// A folder for the job under test and the system's temporary folder beside it, of this process
/// and kept through the run.
class Bench {
 public:
  Bench();
  ~Bench();
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  /// Takes a job through all that the program does with one: version, date, extent, the previews
  /// and every kind of sets, which are written into memory. The job is the file's bytes and those
  /// of a file beside it by its suffix ("-wal", "-journal"; "" for none).
  /// Failure: std::logic_error for a promise that is broken; anything the program must not throw.
  void TakeWholePath(const std::string& job, const std::string& suffix, const std::string& beside);

 private:
  std::filesystem::path root_;
  std::filesystem::path folder_;
  std::filesystem::path temporary_;
};

/// The one of this process.
Bench& TheBench();

}  // namespace kestrin::fuzz
