#pragma once

#include <mutex>
#include <set>
#include <string>

namespace glyphwright::cli {

/// Files that are being written under a name of their own and that nobody should find when the
/// program is interrupted. May be used from any thread.
class PendingFiles {
 public:
  void add(const std::string& file);
  void remove(const std::string& file);
  /// Deletes the files and, from then on, lets no other begin: the program is about to end.
  void abandon();

 private:
  std::mutex mutex_;
  std::set<std::string> files_;
};

}  // namespace glyphwright::cli
