#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace glyphwright {

/// Ends the process with the message that the class does not recognise the selector.
[[noreturn]] void unrecognizedSelector(std::string_view className, std::string_view selector);

/// The position of a selector in a fixed list of distinct names, found in constant time and made at
/// compile time: open addressing with linear probing over a hash of a few characters and the
/// length. The names are not copied; the span has to outlive the index.
template <std::size_t count>
class SelectorIndex {
  static_assert(count > 0 && count < 0xFFFF);

 public:
  explicit constexpr SelectorIndex(std::span<const std::string_view, count> names)
      : names_(names.data()) {
    for (std::size_t i = 0; i < count; ++i) {
      std::size_t slot = hash(names[i]);
      while (slots_[slot] != 0) slot = (slot + 1) % slotCount;
      slots_[slot] = static_cast<std::uint16_t>(i + 1);
    }
  }

  /// Whole and case-sensitive match; nothing for a name that is not in the list.
  constexpr std::optional<std::size_t> find(std::string_view name) const {
    if (name.empty()) return std::nullopt;
    std::size_t slot = hash(name);
    while (slots_[slot] != 0) {
      const std::size_t position = slots_[slot] - std::size_t{1};
      if (names_[position] == name) return position;
      slot = (slot + 1) % slotCount;
    }
    return std::nullopt;
  }

 private:
  // A power of two that leaves at least three slots in four empty, so that a search for a name that
  // is not there ends at once.
  static constexpr std::size_t slotCount = [] {
    std::size_t size = 1;
    while (size < 4 * count) size *= 2;
    return size;
  }();

  static constexpr std::size_t hash(std::string_view name) {
    const std::size_t last = name.size() - 1;
    std::uint64_t word = name.size();
    for (const std::size_t position :
         {std::size_t{0}, last / 4, last / 2, last / 2 + last / 4, last / 8, last}) {
      word = word << 8 | static_cast<unsigned char>(name[position]);
    }
    return static_cast<std::size_t>(word * 0x9E3779B97F4A7C15U >> 40) % slotCount;
  }

  const std::string_view* names_;
  std::array<std::uint16_t, slotCount> slots_{};
};

}  // namespace glyphwright
