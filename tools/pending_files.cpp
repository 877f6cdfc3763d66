#include "pending_files.h"

#include <unistd.h>

namespace glyphwright::cli {

void PendingFiles::add(const std::string& file) {
  const std::scoped_lock lock(mutex_);
  files_.insert(file);
}

void PendingFiles::remove(const std::string& file) {
  const std::scoped_lock lock(mutex_);
  files_.erase(file);
}

void PendingFiles::abandon() {
  mutex_.lock();  // and never again unlocked
  for (const std::string& file : files_) unlink(file.c_str());
}

}  // namespace glyphwright::cli
