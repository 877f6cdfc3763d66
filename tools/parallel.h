#pragma once

#include <cstddef>
#include <functional>

namespace glyphwright::cli {

/// How many threads to use for `asked`; 0 stands for all cores.
std::size_t threadsFor(std::size_t asked);

/// Calls `work(0)` … `work(count - 1)`, each once, on up to `threads` threads, and returns when all
/// are done. `work` must not throw.
void inParallel(std::size_t count, std::size_t threads,
                const std::function<void(std::size_t)>& work);

}  // namespace glyphwright::cli
