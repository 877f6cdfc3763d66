#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <glyphwright/platform/raster/kernels/edge_lanes.h>
#include <glyphwright/platform/raster/lanes/chosen.h>

/// Edges into pieces, each inside one row, eight at a time.
namespace glyphwright::raster::loops {
namespace {

/// Finds where x counts from in each of eight rows.
template <typename L>
class FirstCells {
 public:
  using Ints = typename L::Ints;
  explicit FirstCells(const EdgeRows& rows)
      : stride_(Ints::every(rows.stride)), left_(Ints::every(rows.left)) {}
  Ints of(Ints row) const { return row * stride_ + left_; }

 private:
  Ints stride_;
  Ints left_;
};

/// Eight edges side by side, each running down.
template <typename L>
struct EdgeGroup {
  using Ints = typename L::Ints;
  using Floats = typename L::Floats;
  explicit EdgeGroup(const EdgeRows& rows) {
    const std::size_t left = rows.count - rows.next;
    const Edge* edges = rows.edges + rows.next;
    Edge rest[8];
    if (left < 8) {
      // Level edges, which are not cut, in place of those that do not exist.
      for (std::size_t i = 0; i < 8; ++i) rest[i] = i < left ? edges[i] : Edge{};
      edges = rest;
    }
    const auto e = EdgeEight<L>::load(edges);
    const Ints top = Ints::every(rows.top);
    const Ints yFrom = e.y0 - top;
    const Ints yTo = e.y1 - top;
    const Ints rises = yFrom > yTo;
    upperX = select(rises, e.x1, e.x0);
    lowerX = select(rises, e.x0, e.x1);
    upperY = min(yFrom, yTo);
    lowerY = max(yFrom, yTo);
    sign = rises | Ints::every(1);
    firstRow = shiftRight<kUnitShift>(upperY);
    lastRow = shiftRight<kUnitShift>(lowerY - Ints::every(1));
    from = max(firstRow, Ints::every(0));
    count = min(lastRow, Ints::every(rows.rows - 1)) - from + Ints::every(1);
  }

  Floats upperX;
  Floats lowerX;
  Ints upperY;
  Ints lowerY;
  Ints sign;
  Ints firstRow;
  Ints lastRow;  // above the first one for level edges on a row's border
  Ints from;     // the first one in the band
  Ints count;    // how many there are from that on; none or less outside
};

/// Writes the pieces of edges that lie inside one row; gives how many.
template <typename L>
std::size_t putSingleRows(const EdgeGroup<L>& group, const FirstCells<L>& firstCells,
                          std::size_t at, Pieces& p) {
  using Ints = typename L::Ints;
  const Ints isOne = (group.firstRow == group.lastRow) & (group.count == Ints::every(1));
  const unsigned set = bits(isOne & (group.lowerY > group.upperY));
  const auto chosen = L::choice(set);
  storeChosen(p.xa + at, group.upperX, chosen);
  storeChosen(p.xb + at, group.lowerX, chosen);
  storeChosen(p.cover + at, withSign(group.lowerY - group.upperY, group.sign), chosen);
  storeChosen(p.cell + at, firstCells.of(group.firstRow), chosen);
  return static_cast<std::size_t>(__builtin_popcount(set));
}

/// Lists the edges of a group that span rows. Listing costs the same for any number of them; asking
/// of each edge would cost a wrong guess for most.
template <typename L>
void listRowSpanners(const EdgeGroup<L>& group, std::size_t at, EdgesAtHand& out) {
  using Ints = typename L::Ints;
  store(out.x0 + at, group.upperX);
  store(out.x1 + at, group.lowerX);
  store(out.slope + at, (group.lowerX - group.upperX) / floats(group.lowerY - group.upperY));
  store(out.y0 + at, group.upperY);
  store(out.y1 + at, group.lowerY);
  store(out.sign + at, group.sign);
  store(out.first + at, group.from);
  store(out.rows + at, group.count);
  // Those in the band, of more than one row in all.
  const unsigned spans = bits((group.lastRow > group.firstRow) & (group.count > Ints::every(0)));
  const unsigned tall = bits(group.count > Ints::every(4));
  const auto list = [at](unsigned set, std::uint8_t* edges) {
    const std::uint64_t numbers = lanes::kChosen[set] + at * 0x0101010101010101;
    std::memcpy(edges, &numbers, sizeof(numbers));
    return static_cast<std::size_t>(__builtin_popcount(set));
  };
  out.lowCount += list(spans & ~tall, out.low + out.lowCount);
  out.tallCount += list(spans & tall, out.tall + out.tallCount);
}

/// The rows of one edge, or of two in halves of four.
template <typename L>
struct EdgeLanes {
  using Ints = typename L::Ints;
  using Floats = typename L::Floats;
  EdgeLanes(const EdgesAtHand& at, std::size_t i, std::size_t j)
      : x0(halves<Floats>(at.x0, i, j)),
        x1(halves<Floats>(at.x1, i, j)),
        slope(halves<Floats>(at.slope, i, j)),
        upper(halves<Ints>(at.y0, i, j)),
        lower(halves<Ints>(at.y1, i, j)),
        sign(halves<Ints>(at.sign, i, j)) {}
  EdgeLanes(const EdgesAtHand& at, std::size_t i)
      : x0(Floats::every(at.x0[i])),
        x1(Floats::every(at.x1[i])),
        slope(Floats::every(at.slope[i])),
        upper(Ints::every(at.y0[i])),
        lower(Ints::every(at.y1[i])),
        sign(Ints::every(at.sign[i])) {}

  template <typename Lanes>
  static Lanes halves(const typename Lanes::Lane* values, std::size_t i, std::size_t j) {
    return L::template inHalves<Lanes>(values[i], values[j]);
  }

  /// What lies in each lane's row. Rounding may carry x past the edge's ends by a hair, which the
  /// cells' margin takes.
  struct Cut {
    Floats xa;
    Floats xb;
    Ints cover;
  };
  Cut cut(Ints row) const {
    const Ints rowTop = shiftLeft<kUnitShift>(row);
    const Ints top = max(rowTop, upper);
    const Ints bottom = min(rowTop + Ints::every(kUnitsPerPixel), lower);
    const auto xAt = [&](Ints y) { return x0 + floats(y - upper) * slope; };
    return {xAt(top), select(bottom == lower, x1, xAt(bottom)), withSign(bottom - top, sign)};
  }

  Floats x0;
  Floats x1;
  Floats slope;
  Ints upper;
  Ints lower;
  Ints sign;
};

/// Edges inside one row, of which small shapes have many, eight at a time; those of up to four rows
/// two at a time; the others one by one, eight rows at a time. Nowhere is there a loop over an
/// edge's rows whose end the processor could guess wrong. Pieces beyond an edge's end are
/// overwritten by the next edge. Gives how many there are; a count in memory would be read anew
/// after each store.
template <typename L>
std::size_t cutSome(EdgeRows& rows, Pieces& p) {
  using Ints = typename L::Ints;
  const Ints eights = numbers<Ints>();
  const Ints fours = firstHalves(eights, eights);
  const FirstCells<L> firstCells(rows);
  EdgesAtHand& at = rows.atHand;
  std::size_t count = 0;
  for (;;) {
    const std::size_t lowCount = at.lowCount;
    for (std::size_t next = at.nextLow; next < lowCount; at.nextLow = next += 2) {
      if (count + 8 > Pieces::kCapacity) return count;
      const bool isPair = next + 1 < lowCount;
      const std::size_t i = at.low[next];
      const std::size_t j = isPair ? at.low[next + 1] : i;
      const Ints row = EdgeLanes<L>::template halves<Ints>(at.first, i, j) + fours;
      const auto cut = EdgeLanes<L>(at, i, j).cut(row);
      const std::size_t second = count + static_cast<std::size_t>(at.rows[i]);
      storeHalves(p.xa + count, p.xa + second, cut.xa);
      storeHalves(p.xb + count, p.xb + second, cut.xb);
      storeHalves(p.cover + count, p.cover + second, cut.cover);
      storeHalves(p.cell + count, p.cell + second, firstCells.of(row));
      count = second + static_cast<std::size_t>(isPair ? at.rows[j] : 0);
    }
    for (; at.nextTall < at.tallCount; ++at.nextTall, rows.nextRow = 0) {
      const std::size_t i = at.tall[at.nextTall];
      const EdgeLanes<L> edge(at, i);
      for (; rows.nextRow < at.rows[i]; rows.nextRow += 8) {
        if (count + 8 > Pieces::kCapacity) return count;
        const Ints row = Ints::every(at.first[i] + rows.nextRow) + eights;
        const auto cut = edge.cut(row);
        store(p.xa + count, cut.xa);
        store(p.xb + count, cut.xb);
        store(p.cover + count, cut.cover);
        store(p.cell + count, firstCells.of(row));
        const int left = at.rows[i] - rows.nextRow;
        count += static_cast<std::size_t>(left < 8 ? left : 8);
      }
    }
    if (rows.next >= rows.count || count + EdgesAtHand::kCapacity > Pieces::kCapacity) return count;
    at.lowCount = at.tallCount = at.nextLow = at.nextTall = 0;
    for (std::size_t n = 0; n < EdgesAtHand::kCapacity && rows.next < rows.count; n += 8) {
      const EdgeGroup<L> group(rows);
      count += putSingleRows<L>(group, firstCells, count, p);
      listRowSpanners<L>(group, n, at);
      rows.next += 8;
    }
  }
}

template <typename L>
void cutEdges(EdgeRows& rows, Pieces& p) {
  p.count = cutSome<L>(rows, p);
}

}  // namespace
}  // namespace glyphwright::raster::loops
