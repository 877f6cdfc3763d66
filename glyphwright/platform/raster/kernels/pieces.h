#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels.h>

/// What pieces of edges do to cells.
namespace glyphwright::raster::loops {
namespace {

/// A piece from xa to xb covers `cover` units of its row. With x counted from the left side of the
/// pixel where the piece begins, that pixel is covered to the right of the piece, by 1 − x on
/// average over the piece; but where the piece has run on into the next pixel (x above 1), the
/// first one loses nothing more, and the next one loses x − 1, until the one after that does. Sums
/// are rounded, not changes, and the last one is the cover itself, so a row's total is exact.
template <typename L>
void cellAmounts(Pieces& p) {
  using Ints = typename L::Ints;
  using Floats = typename L::Floats;
  const Floats half = Floats::every(0.5F);
  const Floats one = Floats::every(1);
  const auto units = [&](Floats v) { return truncated(v + half); };
  for (std::size_t i = 0; i < p.count; i += 8) {
    const Floats xa = Floats::load(p.xa + i);
    const Floats xb = Floats::load(p.xb + i);
    const Ints signedCover = Ints::load(p.cover + i);
    const Floats low = min(xa, xb);
    const Floats high = max(xa, xb);
    const Ints first = truncated(low);
    const Floats start = floats(first);
    const Floats a = low - start;
    const Floats b = high - start;
    // An upright piece has no width, and is never past.
    const Floats perLength = half / max(b - a, Floats::every(1e-9F));
    const auto meanPast = [&](Floats x) {
      const Floats past = max(b - x, Floats::every(0));
      return past * past * perLength;
    };
    const Floats past1 = meanPast(one);
    const Floats past2 = meanPast(Floats::every(2));
    const Ints cover = abs(signedCover);
    const Floats height = floats(cover);
    const Ints sum0 = units(height * (one - (a + b) * half + past1));
    const Ints sum1 = cover - units(height * (past1 - past2));
    const Ints sum2 = cover - units(height * past2);
    const Ints wide = high - low > Floats::every(kPieceCells - 2);
    p.wide[i / 8] = static_cast<std::uint8_t>(bits(wide));
    store(p.cell + i, Ints::load(p.cell + i) + first);
    // Each piece's four amounts side by side; none for the wide ones.
    const Ints sign = signedCover & ~wide;
    const auto pair = [&](Ints even, Ints odd) {
      return (withSign(even, sign) & Ints::every(0xFFFF)) | shiftLeft<16>(withSign(odd, sign));
    };
    const Ints pair01 = pair(sum0, sum1 - sum0);
    const Ints pair23 = pair(sum2 - sum1, cover - sum2);
    const Ints a0145 = weaveLow(pair01, pair23);
    const Ints a2367 = weaveHigh(pair01, pair23);
    store(p.amounts[i], firstHalves(a0145, a2367));
    store(p.amounts[i + 4], secondHalves(a0145, a2367));
  }
  // The last eight may be fewer.
  if (p.count % 8 != 0) {
    std::uint8_t& last = p.wide[p.count / 8];
    last = static_cast<std::uint8_t>(last & ((1 << p.count % 8) - 1));
  }
}

template <typename L>
void addPieces(const Pieces& p, std::int16_t* cells, std::uint8_t* touched) {
  using Shorts4 = typename L::Shorts4;
  static_assert(kPieceCells == Shorts4::kLanes);
  const std::size_t count = p.count;
  // Neighbours often change the same cells, and would wait for one another: every eighth in turn.
  for (std::size_t j = 0; j < 8; ++j) {
    for (std::size_t i = j; i < count; i += 8) {
      const std::ptrdiff_t at = p.cell[i];
      store(cells + at, Shorts4::load(cells + at) + Shorts4::load(p.amounts[i]));
      if (touched == nullptr) continue;
      touched[at >> kBlockShift] = 1;
      touched[(at + kPieceCells - 1) >> kBlockShift] = 1;
    }
  }
}

}  // namespace
}  // namespace glyphwright::raster::loops
