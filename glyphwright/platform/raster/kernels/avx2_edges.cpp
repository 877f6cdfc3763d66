#include <glyphwright/platform/raster/kernels/avx2.h>

#include <array>
#include <cstring>

#include <glyphwright/platform/raster/kernels/avx2_edge_lanes.h>

// Edges and pieces eight at a time; scalar_edges.cpp says what each loop computes.
namespace glyphwright::raster::avx2 {
namespace {

void storeHalves(std::int32_t* upper, std::int32_t* lower, __m256i value) {
  _mm256_storeu2_m128i(reinterpret_cast<__m128i*>(upper), reinterpret_cast<__m128i*>(lower), value);
}

// Finds where x counts from in each of eight rows.
class FirstCells {
 public:
  explicit FirstCells(const EdgeRows& rows)
      : stride_(_mm256_set1_epi32(rows.stride)), left_(_mm256_set1_epi32(rows.left)) {}
  __m256i of(__m256i row) const {
    return _mm256_add_epi32(_mm256_mullo_epi32(row, stride_), left_);
  }

 private:
  __m256i stride_;
  __m256i left_;
};

// Eight edges side by side, each running down.
struct EdgeGroup {
  explicit EdgeGroup(const EdgeRows& rows) {
    const std::size_t left = rows.count - rows.next;
    const Edge* edges = rows.edges + rows.next;
    Edge rest[8];
    if (left < 8) {
      // Level edges, which are not cut, in place of those that do not exist.
      for (std::size_t i = 0; i < 8; ++i) rest[i] = i < left ? edges[i] : Edge{};
      edges = rest;
    }
    const EdgeEight e = loadEdges(edges);
    const __m256i top = _mm256_set1_epi32(rows.top);
    const __m256 xFrom = e.x0, xTo = e.x1;
    const __m256i yFrom = _mm256_sub_epi32(e.y0, top), yTo = _mm256_sub_epi32(e.y1, top);
    const __m256i rises = _mm256_cmpgt_epi32(yFrom, yTo);
    upperX = _mm256_blendv_ps(xFrom, xTo, _mm256_castsi256_ps(rises));
    lowerX = _mm256_blendv_ps(xTo, xFrom, _mm256_castsi256_ps(rises));
    upperY = _mm256_min_epi32(yFrom, yTo);
    lowerY = _mm256_max_epi32(yFrom, yTo);
    sign = _mm256_or_si256(rises, _mm256_set1_epi32(1));
    const __m256i one = _mm256_set1_epi32(1);
    firstRow = _mm256_srai_epi32(upperY, kUnitShift);
    lastRow = _mm256_srai_epi32(_mm256_sub_epi32(lowerY, one), kUnitShift);
  }

  __m256 upperX;
  __m256 lowerX;
  __m256i upperY;
  __m256i lowerY;
  __m256i sign;
  __m256i firstRow;
  __m256i lastRow;  // above the first one for level edges on a row's border
};

// For each set of eight lanes, the numbers of its lanes one after another, a byte each.
constexpr auto kChosenLanes = [] {
  std::array<std::uint64_t, 256> table{};
  for (unsigned set = 0; set < 256; ++set) {
    int at = 0;
    for (unsigned lane = 0; lane < 8; ++lane) {
      if ((set >> lane & 1) != 0) table[set] |= std::uint64_t{lane} << 8 * at++;
    }
  }
  return table;
}();

// Writes the pieces of edges that lie inside one row.
class SingleRows {
 public:
  SingleRows(const EdgeRows& rows, const EdgeGroup& group) : group_(group) {
    const __m256i isLevel = _mm256_cmpeq_epi32(group.upperY, group.lowerY);
    const __m256i inOne = _mm256_cmpeq_epi32(group.firstRow, group.lastRow);
    // As unsigned numbers, rows above the first one lie far below the last.
    const __m256i lastRow = _mm256_set1_epi32(rows.rows - 1);
    const __m256i isInside =
        _mm256_cmpeq_epi32(_mm256_min_epu32(group.firstRow, lastRow), group.firstRow);
    set_ = bits(_mm256_andnot_si256(isLevel, _mm256_and_si256(inOne, isInside)));
  }

  std::size_t write(Pieces& p, std::size_t at, const FirstCells& firstCells) const {
    const __m256i lanes =
        _mm256_cvtepu8_epi32(_mm_cvtsi64_si128(static_cast<long long>(kChosenLanes[set_])));
    const auto chosen = [&](__m256i v) { return _mm256_permutevar8x32_epi32(v, lanes); };
    const auto chosenFloats = [&](__m256 v) { return _mm256_permutevar8x32_ps(v, lanes); };
    const __m256i height = _mm256_sub_epi32(group_.lowerY, group_.upperY);
    const __m256i cell = firstCells.of(group_.firstRow);
    _mm256_storeu_ps(p.xa + at, chosenFloats(group_.upperX));
    _mm256_storeu_ps(p.xb + at, chosenFloats(group_.lowerX));
    store(p.cover + at, chosen(_mm256_sign_epi32(height, group_.sign)));
    store(p.cell + at, chosen(cell));
    return static_cast<std::size_t>(__builtin_popcount(set_));
  }

 private:
  const EdgeGroup& group_;
  unsigned set_;
};

// Lists the edges of a group that span rows. Listing costs the same for any number of them; asking
// of each edge would cost a wrong guess for most.
class RowSpanners {
 public:
  RowSpanners(const EdgeRows& rows, const EdgeGroup& group, std::size_t at, EdgesAtHand& out) {
    const __m256i one = _mm256_set1_epi32(1);
    const __m256i from = _mm256_max_epi32(group.firstRow, _mm256_setzero_si256());
    const __m256i to = _mm256_min_epi32(group.lastRow, _mm256_set1_epi32(rows.rows - 1));
    const __m256i count = _mm256_add_epi32(_mm256_sub_epi32(to, from), one);
    const __m256 height = _mm256_cvtepi32_ps(_mm256_sub_epi32(group.lowerY, group.upperY));
    const __m256 run = _mm256_sub_ps(group.lowerX, group.upperX);
    _mm256_storeu_ps(out.x0 + at, group.upperX);
    _mm256_storeu_ps(out.x1 + at, group.lowerX);
    _mm256_storeu_ps(out.slope + at, _mm256_div_ps(run, height));
    store(out.y0 + at, group.upperY);
    store(out.y1 + at, group.lowerY);
    store(out.sign + at, group.sign);
    store(out.first + at, from);
    store(out.rows + at, count);
    // Those in the band, of more than one row in all.
    const __m256i spans = _mm256_andnot_si256(_mm256_cmpgt_epi32(one, count),
                                              _mm256_cmpgt_epi32(group.lastRow, group.firstRow));
    const __m256i isTall = _mm256_cmpgt_epi32(count, _mm256_set1_epi32(4));
    out.lowCount += list(bits(_mm256_andnot_si256(isTall, spans)), at, out.low + out.lowCount);
    out.tallCount += list(bits(_mm256_and_si256(isTall, spans)), at, out.tall + out.tallCount);
  }

 private:
  static std::size_t list(unsigned set, std::size_t at, std::uint8_t* to) {
    const std::uint64_t numbers = kChosenLanes[set] + at * 0x0101010101010101;
    std::memcpy(to, &numbers, sizeof(numbers));
    return static_cast<std::size_t>(__builtin_popcount(set));
  }
};

// The rows of one edge, or of two in halves of four.
struct EdgeLanes {
  EdgeLanes(const EdgesAtHand& at, std::size_t i)
      : x0(_mm256_broadcast_ss(at.x0 + i)),
        x1(_mm256_broadcast_ss(at.x1 + i)),
        slope(_mm256_broadcast_ss(at.slope + i)),
        upper(_mm256_set1_epi32(at.y0[i])),
        lower(_mm256_set1_epi32(at.y1[i])),
        sign(_mm256_set1_epi32(at.sign[i])) {}
  EdgeLanes(const EdgesAtHand& at, std::size_t i, std::size_t j)
      : x0(halves(at.x0, i, j)),
        x1(halves(at.x1, i, j)),
        slope(halves(at.slope, i, j)),
        upper(halves(at.y0, i, j)),
        lower(halves(at.y1, i, j)),
        sign(halves(at.sign, i, j)) {}

  static __m256 halves(const float* values, std::size_t i, std::size_t j) {
    return _mm256_blend_ps(_mm256_broadcast_ss(values + i), _mm256_broadcast_ss(values + j), 0xF0);
  }
  static __m256i halves(const std::int32_t* values, std::size_t i, std::size_t j) {
    return _mm256_blend_epi32(_mm256_set1_epi32(values[i]), _mm256_set1_epi32(values[j]), 0xF0);
  }

  // What lies in each lane's row.
  struct Cut {
    __m256 xa;
    __m256 xb;
    __m256i cover;
  };
  Cut cut(__m256i row) const {
    const __m256i rowTop = _mm256_slli_epi32(row, kUnitShift);
    const __m256i rowEnd = _mm256_add_epi32(rowTop, _mm256_set1_epi32(kUnitsPerPixel));
    const __m256i top = _mm256_max_epi32(rowTop, upper);
    const __m256i bottom = _mm256_min_epi32(rowEnd, lower);
    const __m256 isEnd = _mm256_castsi256_ps(_mm256_cmpeq_epi32(bottom, lower));
    const auto xAt = [&](__m256i y) {
      const __m256 depth = _mm256_cvtepi32_ps(_mm256_sub_epi32(y, upper));
      return _mm256_add_ps(x0, _mm256_mul_ps(depth, slope));
    };
    return {xAt(top), _mm256_blendv_ps(xAt(bottom), x1, isEnd),
            _mm256_sign_epi32(_mm256_sub_epi32(bottom, top), sign)};
  }

  __m256 x0;
  __m256 x1;
  __m256 slope;
  __m256i upper;
  __m256i lower;
  __m256i sign;
};

}  // namespace

// Edges inside one row, of which small shapes have many, eight at a time; those of up to four rows
// two at a time; the others one by one, eight rows at a time. Nowhere is there a loop over an
// edge's rows whose end the processor could guess wrong. Pieces beyond an edge's end are
// overwritten by the next edge.
void cutEdges(EdgeRows& rows, Pieces& p) {
  const __m256i fours = _mm256_setr_epi32(0, 1, 2, 3, 0, 1, 2, 3);
  const __m256i eights = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  const FirstCells firstCells(rows);
  EdgesAtHand& at = rows.atHand;
  p.count = 0;
  for (;;) {
    for (; at.nextLow < at.lowCount; at.nextLow += 2) {
      if (p.count + 8 > Pieces::kCapacity) return;
      const bool isPair = at.nextLow + 1 < at.lowCount;
      const std::size_t i = at.low[at.nextLow];
      const std::size_t j = isPair ? at.low[at.nextLow + 1] : i;
      const __m256i row = _mm256_add_epi32(EdgeLanes::halves(at.first, i, j), fours);
      const EdgeLanes::Cut cut = EdgeLanes(at, i, j).cut(row);
      const __m256i cell = firstCells.of(row);
      const std::size_t first = p.count;
      const std::size_t second = first + static_cast<std::size_t>(at.rows[i]);
      _mm256_storeu2_m128(p.xa + second, p.xa + first, cut.xa);
      _mm256_storeu2_m128(p.xb + second, p.xb + first, cut.xb);
      storeHalves(p.cover + second, p.cover + first, cut.cover);
      storeHalves(p.cell + second, p.cell + first, cell);
      p.count = second + static_cast<std::size_t>(isPair ? at.rows[j] : 0);
    }
    for (; at.nextTall < at.tallCount; ++at.nextTall, rows.nextRow = 0) {
      const std::size_t i = at.tall[at.nextTall];
      const EdgeLanes edge(at, i);
      for (; rows.nextRow < at.rows[i]; rows.nextRow += 8) {
        if (p.count + 8 > Pieces::kCapacity) return;
        const __m256i row = _mm256_add_epi32(_mm256_set1_epi32(at.first[i] + rows.nextRow), eights);
        const EdgeLanes::Cut cut = edge.cut(row);
        _mm256_storeu_ps(p.xa + p.count, cut.xa);
        _mm256_storeu_ps(p.xb + p.count, cut.xb);
        store(p.cover + p.count, cut.cover);
        store(p.cell + p.count, firstCells.of(row));
        const int left = at.rows[i] - rows.nextRow;
        p.count += static_cast<std::size_t>(left < 8 ? left : 8);
      }
    }
    if (rows.next >= rows.count || p.count + EdgesAtHand::kCapacity > Pieces::kCapacity) return;
    at.lowCount = at.tallCount = at.nextLow = at.nextTall = 0;
    for (std::size_t n = 0; n < EdgesAtHand::kCapacity && rows.next < rows.count; n += 8) {
      const EdgeGroup group(rows);
      p.count += SingleRows(rows, group).write(p, p.count, firstCells);
      RowSpanners(rows, group, n, at);
      rows.next += 8;
    }
  }
}

void cellAmounts(Pieces& p) {
  const __m256 half = _mm256_set1_ps(0.5F);
  const __m256 one = _mm256_set1_ps(1);
  const __m256 two = _mm256_set1_ps(2);
  const auto units = [&](__m256 v) { return _mm256_cvttps_epi32(_mm256_add_ps(v, half)); };
  for (std::size_t i = 0; i < p.count; i += 8) {
    const __m256 xa = _mm256_loadu_ps(p.xa + i);
    const __m256 xb = _mm256_loadu_ps(p.xb + i);
    const __m256i signedCover = load(p.cover + i);
    const __m256 low = _mm256_min_ps(xa, xb);
    const __m256 high = _mm256_max_ps(xa, xb);
    const __m256i first = _mm256_cvttps_epi32(low);
    const __m256 start = _mm256_cvtepi32_ps(first);
    const __m256 a = _mm256_sub_ps(low, start);
    const __m256 b = _mm256_sub_ps(high, start);
    const __m256 perLength =
        _mm256_div_ps(half, _mm256_max_ps(_mm256_sub_ps(b, a), _mm256_set1_ps(1e-9F)));
    const auto meanPast = [&](__m256 x) {
      const __m256 past = _mm256_max_ps(_mm256_sub_ps(b, x), _mm256_setzero_ps());
      return _mm256_mul_ps(_mm256_mul_ps(past, past), perLength);
    };
    const __m256 past1 = meanPast(one);
    const __m256 past2 = meanPast(two);
    const __m256i cover = _mm256_abs_epi32(signedCover);
    const __m256 height = _mm256_cvtepi32_ps(cover);
    const __m256 share =
        _mm256_add_ps(_mm256_sub_ps(one, _mm256_mul_ps(_mm256_add_ps(a, b), half)), past1);
    const __m256i sum0 = units(_mm256_mul_ps(height, share));
    const __m256i sum1 =
        _mm256_sub_epi32(cover, units(_mm256_mul_ps(height, _mm256_sub_ps(past1, past2))));
    const __m256i sum2 = _mm256_sub_epi32(cover, units(_mm256_mul_ps(height, past2)));
    const __m256 wide =
        _mm256_cmp_ps(_mm256_sub_ps(high, low), _mm256_set1_ps(kPieceCells - 2), _CMP_GT_OQ);
    p.wide[i / 8] = static_cast<std::uint8_t>(_mm256_movemask_ps(wide));
    store(p.cell + i, _mm256_add_epi32(load(p.cell + i), first));
    // Each piece's four amounts side by side; none for the wide ones.
    const __m256i sign = _mm256_andnot_si256(_mm256_castps_si256(wide), signedCover);
    const auto pair = [&](__m256i even, __m256i odd) {
      const __m256i low16 = _mm256_set1_epi32(0xFFFF);
      return _mm256_or_si256(_mm256_and_si256(_mm256_sign_epi32(even, sign), low16),
                             _mm256_slli_epi32(_mm256_sign_epi32(odd, sign), 16));
    };
    const __m256i pair01 = pair(sum0, _mm256_sub_epi32(sum1, sum0));
    const __m256i pair23 = pair(_mm256_sub_epi32(sum2, sum1), _mm256_sub_epi32(cover, sum2));
    const __m256i a0145 = _mm256_unpacklo_epi32(pair01, pair23);
    const __m256i a2367 = _mm256_unpackhi_epi32(pair01, pair23);
    store(p.amounts[i], _mm256_permute2x128_si256(a0145, a2367, 0x20));
    store(p.amounts[i + 4], _mm256_permute2x128_si256(a0145, a2367, 0x31));
  }
  // The last eight may be fewer.
  if (p.count % 8 != 0) {
    std::uint8_t& last = p.wide[p.count / 8];
    last = static_cast<std::uint8_t>(last & ((1 << p.count % 8) - 1));
  }
}

void addPieces(const Pieces& p, std::int16_t* cells, std::uint8_t* touched) {
  static_assert(kPieceCells == 4);  // one 64-bit word
  const std::size_t count = p.count;
  // Neighbours often change the same cells, and would wait for one another: every eighth in turn.
  for (std::size_t j = 0; j < 8; ++j) {
    for (std::size_t i = j; i < count; i += 8) {
      const std::ptrdiff_t at = p.cell[i];
      auto* cell = reinterpret_cast<__m128i*>(cells + at);
      const __m128i amounts = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p.amounts[i]));
      _mm_storel_epi64(cell, _mm_add_epi16(_mm_loadl_epi64(cell), amounts));
      if (touched == nullptr) continue;
      touched[at >> kBlockShift] = 1;
      touched[(at + kPieceCells - 1) >> kBlockShift] = 1;
    }
  }
}

}  // namespace glyphwright::raster::avx2
