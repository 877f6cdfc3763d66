#pragma once

#include <atomic>
#include <thread>

#include "pending_files.h"

namespace glyphwright::cli {

/// While it lives, an interruption from outside (Ctrl-C, a request to end, a closed terminal) first
/// deletes the pending files and then ends the program as if nobody had listened. Writing to a
/// closed pipe or beyond a limit of size is an error of that write and no signal. Make it before
/// any other thread, so that all inherit what it blocks.
class Interruption {
 public:
  explicit Interruption(PendingFiles& files);
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

 private:
  std::atomic<bool> over_ = false;
  std::thread listener_;
};

}  // namespace glyphwright::cli
