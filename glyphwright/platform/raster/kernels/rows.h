#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels.h>

/// How sixteen lanes lie over rows: sixteen pixels of one row, or eight of two rows, where no sum
/// has to cross from half to half.
namespace glyphwright::raster::loops {
namespace {

/// Sixteen pixels, of which each half has four in a row: of `a` come those of the lower four lanes
/// of either half, of `b` those of the upper four.
template <typename L>
struct Woven {
  typename L::Ints a;
  typename L::Ints b;
};

/// Pixels from `channel(c)`, which gives the bytes of one channel in 16-bit lanes.
template <typename L, typename Channel>
Woven<L> woven(const Channel& channel) {
  using Ints = typename L::Ints;
  const typename L::Shorts redGreen = channel(0) | shiftLeft<8>(channel(1));
  const typename L::Shorts blueAlpha = channel(2) | shiftLeft<8>(channel(3));
  return {as<Ints>(weaveLow(redGreen, blueAlpha)), as<Ints>(weaveHigh(redGreen, blueAlpha))};
}

/// The lanes' numbers.
template <typename Lanes>
Lanes numbers() {
  static constexpr
      typename Lanes::Lane kNumbers[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
  return Lanes::load(kNumbers);
}

/// A mask for the first `count` lanes.
template <typename Lanes>
Lanes firstLanes(std::size_t count) {
  const std::size_t held = count < Lanes::kLanes ? count : Lanes::kLanes;
  return Lanes::every(static_cast<typename Lanes::Lane>(held)) > numbers<Lanes>();
}

/// The sums within each half.
template <typename Shorts>
Shorts sumsInHalves(Shorts v) {
  v = v + upBy<1>(v);
  v = v + upBy<2>(v);
  return v + upBy<4>(v);
}

/// Running sums of sixteen lanes after another. Only one addition waits for the block before.
template <typename L>
class OneRowSums {
 public:
  using Shorts = typename L::Shorts;
  explicit OneRowSums(int carry = 0) : before_(Shorts::every(static_cast<std::int16_t>(carry))) {}

  Shorts next(Shorts cells) {
    const Shorts v = sumsInHalves(cells);
    // The second half goes on from the first one's total.
    const Shorts totals = lastOfHalves(v);
    const Shorts sums = v + firstHalves(Shorts::every(0), totals) + before_;
    before_ = before_ + (firstHalves(totals, totals) + secondHalves(totals, totals));
    return sums;
  }
  /// The sum of all so far, in every lane.
  Shorts sum() const { return before_; }

 private:
  Shorts before_;
};

/// The same for two rows, each in its own half.
template <typename L>
class TwoRowSums {
 public:
  using Shorts = typename L::Shorts;
  Shorts next(Shorts cells) {
    const Shorts sums = sumsInHalves(cells) + before_;
    before_ = lastOfHalves(sums);
    return sums;
  }
  Shorts sum() const { return before_; }

 private:
  Shorts before_ = Shorts::every(0);
};

/// Sixteen pixels of one row.
template <typename L>
struct OneRow {
  using Shorts = typename L::Shorts;
  using Ints = typename L::Ints;
  using Sums = OneRowSums<L>;
  static constexpr std::size_t kRows = 1;
  static constexpr std::size_t kPixels = 16;

  /// Takes cells and leaves zeros.
  static Shorts take(std::int16_t* cells, std::size_t /*stride*/) {
    const Shorts taken = Shorts::load(cells);
    store(cells, Shorts::every(0));
    return taken;
  }
  static Shorts coverage(const std::uint16_t* from) { return Shorts::load(from); }
  static Woven<L> read(const std::uint8_t* rgba) {
    const Ints low = Ints::load(rgba);
    const Ints high = Ints::load(rgba + 32);
    return {firstHalves(low, high), secondHalves(low, high)};
  }
  static void write(std::uint8_t* rgba, const Woven<L>& p) {
    store(rgba, firstHalves(p.a, p.b));
    store(rgba + 32, secondHalves(p.a, p.b));
  }

  std::size_t rowBytes;
};

/// Less than sixteen pixels at the end of a row: nothing beyond them is read or written.
template <typename L>
struct OneRowEnd {
  using Shorts = typename L::Shorts;
  using Ints = typename L::Ints;

  static Shorts cut(Shorts units) { return units; }
  Shorts coverage(const std::uint16_t* from) const {
    std::uint16_t values[kBlock] = {};
    for (std::size_t i = 0; i < pixels; ++i) values[i] = from[i];
    return Shorts::load(values);
  }
  Woven<L> read(const std::uint8_t* rgba) const {
    const Ints low = L::loadFirst(rgba, pixels);
    const Ints high = L::loadFirst(rgba + 32, pixels < 8 ? 0 : pixels - 8);
    return {firstHalves(low, high), secondHalves(low, high)};
  }
  void write(std::uint8_t* rgba, const Woven<L>& p) const {
    storeFirst(rgba, firstHalves(p.a, p.b), pixels);
    if (pixels > 8) storeFirst(rgba + 32, secondHalves(p.a, p.b), pixels - 8);
  }

  std::size_t pixels;
};

/// Eight pixels of a row, and the same eight of the row below.
template <typename L>
struct TwoRows {
  using Shorts = typename L::Shorts;
  using Ints = typename L::Ints;
  using Sums = TwoRowSums<L>;
  static constexpr std::size_t kRows = 2;
  static constexpr std::size_t kPixels = 8;

  static Shorts take(std::int16_t* cells, std::size_t stride) {
    const Shorts taken = L::template loadHalves<Shorts>(cells, cells + stride);
    storeHalves(cells, cells + stride, Shorts::every(0));
    return taken;
  }
  void write(std::uint8_t* rgba, const Woven<L>& p) const {
    // In an image that is narrower than a stretch, the upper row's end is the lower row's start:
    // that one is stored last.
    storeHalves(rgba + 16, rgba + rowBytes + 16, p.b);
    storeHalves(rgba, rgba + rowBytes, p.a);
  }
  Woven<L> read(const std::uint8_t* rgba) const {
    return {L::template loadHalves<Ints>(rgba, rgba + rowBytes),
            L::template loadHalves<Ints>(rgba + 16, rgba + rowBytes + 16)};
  }
  /// A block of both rows in two stretches, for half the loads and stores of one after the other.
  struct Block {
    Shorts first;
    Shorts second;
  };
  static Block takeBlock(std::int16_t* cells, std::size_t stride) {
    const Shorts upper = OneRow<L>::take(cells, stride);
    const Shorts lower = OneRow<L>::take(cells + stride, stride);
    return {firstHalves(upper, lower), secondHalves(upper, lower)};
  }
  void writeBlock(std::uint8_t* rgba, const Woven<L>& first, const Woven<L>& second) const {
    store(rgba, firstHalves(first.a, first.b));
    store(rgba + 32, firstHalves(second.a, second.b));
    store(rgba + rowBytes, secondHalves(first.a, first.b));
    store(rgba + rowBytes + 32, secondHalves(second.a, second.b));
  }

  std::size_t rowBytes;
};

/// Less than eight pixels at the end of two rows. What lies beyond a row's end, which may be the
/// start of the row that follows, stays.
template <typename L>
class TwoRowsEnd : public TwoRows<L> {
 public:
  using Shorts = typename L::Shorts;
  using Ints = typename L::Ints;
  TwoRowsEnd(const TwoRows<L>& rows, std::size_t pixels) : TwoRows<L>(rows) {
    const Shorts lanes = firstLanes<Shorts>(pixels);
    covered_ = firstHalves(lanes, lanes);
    const Ints inRow = firstLanes<Ints>(pixels);
    written_ = {firstHalves(inRow, inRow), secondHalves(inRow, inRow)};
  }

  Shorts cut(Shorts units) const { return units & covered_; }
  void write(std::uint8_t* rgba, const Woven<L>& p) const {
    const Woven<L> before = this->read(rgba);
    TwoRows<L>::write(rgba, {select(written_.a, p.a, before.a), select(written_.b, p.b, before.b)});
  }

 private:
  Shorts covered_;
  Woven<L> written_;
};

/// Runs `step(block, at)` over a row, sixteen pixels at a time.
template <typename L, typename Step>
void inBlocks(std::size_t count, const Step& step) {
  std::size_t at = 0;
  for (; at + kBlock <= count; at += kBlock) step(OneRow<L>{}, at);
  if (at < count) step(OneRowEnd<L>{count - at}, at);
}

/// The same for a step that puts whole pixels down, whatever is there: the last sixteen may then be
/// done twice, which is faster than a part of them.
template <typename L, typename Step>
void inWholeBlocks(std::size_t count, const Step& step) {
  if (count < kBlock) return step(OneRowEnd<L>{count}, std::size_t{0});
  std::size_t at = 0;
  for (; at + kBlock <= count; at += kBlock) step(OneRow<L>{}, at);
  if (at < count) step(OneRow<L>{}, count - kBlock);
}

}  // namespace
}  // namespace glyphwright::raster::loops
