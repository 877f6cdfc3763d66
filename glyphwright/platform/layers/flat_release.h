#pragma once

#include <iterator>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace glyphwright {

/// Lets go of objects that may hold further ones of their kind, link after link, without going
/// deeper into the stack for each link. `innerOf` gives the list that an object holds, or null when
/// it holds none. What somebody else still holds is left as it is. Should memory run out for the
/// list of what is left, an object takes its inner ones along, in the ordinary way.
template <typename Object, typename InnerOf>
void releaseFlat(std::vector<std::shared_ptr<Object>> left, InnerOf innerOf) {
  while (!left.empty()) {
    const std::shared_ptr<Object> held = std::move(left.back());
    left.pop_back();
    std::vector<std::shared_ptr<Object>>* inner = held.use_count() == 1 ? innerOf(*held) : nullptr;
    if (!inner) continue;
    if (left.empty()) {
      left = std::move(*inner);
    } else {
      try {
        left.insert(left.end(), std::make_move_iterator(inner->begin()),
                    std::make_move_iterator(inner->end()));
      } catch (const std::bad_alloc&) {
        continue;
      }
    }
    inner->clear();
  }
}

}  // namespace glyphwright
