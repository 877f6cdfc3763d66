#include <glyphwright/platform/raster/kernels/avx2.h>

#include <immintrin.h>

#include <array>

// Curves, edges and pieces eight at a time; scalar_edges.cpp says what each loop computes.
namespace glyphwright::raster::avx2 {
namespace {

__m256i load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}
void store(void* to, __m256i value) {
  _mm256_storeu_si256(static_cast<__m256i*>(to), value);
}

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
    // Edges i and i + 4 in one register; then all x0, all x1, all y0, all y1.
    const auto pair = [&](int i) { return _mm256_loadu2_m128(&edges[i + 4].x0, &edges[i].x0); };
    const __m256 x01 = _mm256_unpacklo_ps(pair(0), pair(1));
    const __m256 y01 = _mm256_unpackhi_ps(pair(0), pair(1));
    const __m256 x23 = _mm256_unpacklo_ps(pair(2), pair(3));
    const __m256 y23 = _mm256_unpackhi_ps(pair(2), pair(3));
    const __m256 xFrom = _mm256_shuffle_ps(x01, x23, _MM_SHUFFLE(1, 0, 1, 0));
    const __m256 xTo = _mm256_shuffle_ps(x01, x23, _MM_SHUFFLE(3, 2, 3, 2));
    const __m256i top = _mm256_set1_epi32(rows.top);
    const auto units = [&](__m256 v) { return _mm256_sub_epi32(_mm256_castps_si256(v), top); };
    const __m256i yFrom = units(_mm256_shuffle_ps(y01, y23, _MM_SHUFFLE(1, 0, 1, 0)));
    const __m256i yTo = units(_mm256_shuffle_ps(y01, y23, _MM_SHUFFLE(3, 2, 3, 2)));
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

unsigned bits(__m256i lanes) {
  return static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(lanes)));
}

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
  SingleRows(const EdgeRows& rows, const EdgeGroup& group) : stride_(rows.stride), group_(group) {
    const __m256i isLevel = _mm256_cmpeq_epi32(group.upperY, group.lowerY);
    const __m256i inOne = _mm256_cmpeq_epi32(group.firstRow, group.lastRow);
    // As unsigned numbers, rows above the first one lie far below the last.
    const __m256i lastRow = _mm256_set1_epi32(rows.rows - 1);
    const __m256i isInside =
        _mm256_cmpeq_epi32(_mm256_min_epu32(group.firstRow, lastRow), group.firstRow);
    set_ = bits(_mm256_andnot_si256(isLevel, _mm256_and_si256(inOne, isInside)));
  }

  std::size_t write(Pieces& p, std::size_t at) const {
    const __m256i lanes =
        _mm256_cvtepu8_epi32(_mm_cvtsi64_si128(static_cast<long long>(kChosenLanes[set_])));
    const auto chosen = [&](__m256i v) { return _mm256_permutevar8x32_epi32(v, lanes); };
    const auto chosenFloats = [&](__m256 v) { return _mm256_permutevar8x32_ps(v, lanes); };
    const __m256i height = _mm256_sub_epi32(group_.lowerY, group_.upperY);
    const __m256i cell = _mm256_mullo_epi32(group_.firstRow, _mm256_set1_epi32(stride_));
    _mm256_storeu_ps(p.xa + at, chosenFloats(group_.upperX));
    _mm256_storeu_ps(p.xb + at, chosenFloats(group_.lowerX));
    store(p.cover + at, chosen(_mm256_sign_epi32(height, group_.sign)));
    store(p.cell + at, chosen(cell));
    return static_cast<std::size_t>(__builtin_popcount(set_));
  }

 private:
  std::int32_t stride_;
  const EdgeGroup& group_;
  unsigned set_;
};

// The edges of a group that span rows, to be read one by one.
struct LongEdges {
  LongEdges(const EdgeRows& rows, const EdgeGroup& group) {
    const __m256i from = _mm256_max_epi32(group.firstRow, _mm256_setzero_si256());
    const __m256i to = _mm256_min_epi32(group.lastRow, _mm256_set1_epi32(rows.rows - 1));
    // Those in the band, of more than one row in all.
    set = bits(_mm256_andnot_si256(_mm256_cmpgt_epi32(from, to),
                                   _mm256_cmpgt_epi32(group.lastRow, group.firstRow)));
    if (set == 0) return;
    const __m256 height = _mm256_cvtepi32_ps(_mm256_sub_epi32(group.lowerY, group.upperY));
    const __m256 run = _mm256_sub_ps(group.lowerX, group.upperX);
    _mm256_storeu_ps(x0, group.upperX);
    _mm256_storeu_ps(x1, group.lowerX);
    _mm256_storeu_ps(slope, _mm256_div_ps(run, height));
    store(y0, group.upperY);
    store(y1, group.lowerY);
    store(sign, group.sign);
    store(first, from);
    store(last, to);
  }

  unsigned set;
  float x0[8];
  float x1[8];
  float slope[8];
  std::int32_t y0[8];
  std::int32_t y1[8];
  std::int32_t sign[8];
  std::int32_t first[8];  // row
  std::int32_t last[8];
};

__m256i everyLane(const std::int32_t& value) {
  return _mm256_set1_epi32(value);
}

constexpr float kParts[] = {0,        1,        1.0F / 2, 1.0F / 3, 1.0F / 4,
                            1.0F / 5, 1.0F / 6, 1.0F / 7, 1.0F / 8};

int chordCount(__m128 chords4) {
  const __m256 fourthPowers = _mm256_setr_ps(1, 16, 81, 256, 625, 1296, 2401, 4096);
  const __m256 reached = _mm256_cmp_ps(_mm256_broadcastss_ps(chords4), fourthPowers, _CMP_GE_OQ);
  const int count = 1 + __builtin_popcount(static_cast<unsigned>(_mm256_movemask_ps(reached)));
  if (count <= 8) return count;
  const float root = _mm_cvtss_f32(_mm_sqrt_ss(_mm_sqrt_ss(chords4)));
  return root < kMaxChords - 1 ? static_cast<int>(root) + 1 : kMaxChords;
}

}  // namespace

// Eight samples at a time; the last eight may run past the curve's end.
int sampleCurve(const double* points, const CurveFrame& frame, float* xs, std::int32_t* ys) {
  // x and y of two points a register.
  const __m256d corner = _mm256_setr_pd(frame.left, frame.top, frame.left, frame.top);
  const __m128 p01 = _mm256_cvtpd_ps(_mm256_sub_pd(_mm256_loadu_pd(points), corner));
  const __m128 p23 = _mm256_cvtpd_ps(_mm256_sub_pd(_mm256_loadu_pd(points + 4), corner));
  const __m128 p12 = _mm_shuffle_ps(p01, p23, _MM_SHUFFLE(1, 0, 3, 2));
  const __m128 uv = _mm_add_ps(_mm_sub_ps(p01, _mm_mul_ps(_mm_set1_ps(2), p12)), p23);
  const __m128 squares = _mm_mul_ps(uv, uv);
  const __m128 sums =
      _mm_add_ps(squares, _mm_shuffle_ps(squares, squares, _MM_SHUFFLE(2, 3, 0, 1)));
  const __m128 bendSquare = _mm_max_ss(sums, _mm_movehl_ps(sums, sums));
  const __m128 chords4 = _mm_mul_ss(bendSquare, _mm_set_ss(frame.chordFactor));
  const int count = chordCount(chords4);
  const float h = count <= 8 ? kParts[count] : 1.0F / static_cast<float>(count);
  const __m128 lift = _mm_set1_ps(h * h * 0.5F);
  const __m128 a = _mm_sub_ps(_mm_movehl_ps(uv, uv), uv);
  const __m128 b = _mm_mul_ps(_mm_set1_ps(3), uv);
  const __m128 c =
      _mm_sub_ps(_mm_mul_ps(_mm_set1_ps(3), _mm_sub_ps(p12, p01)), _mm_mul_ps(a, lift));
  const __m128 start = _mm_sub_ps(p01, _mm_mul_ps(uv, lift));
  const auto xOf = [](__m128 v) { return _mm256_broadcastss_ps(v); };
  const auto yOf = [](__m128 v) { return _mm256_broadcastss_ps(_mm_movehdup_ps(v)); };
  const auto at = [](__m256 t, __m256 c3, __m256 c2, __m256 c1, __m256 c0) {
    const __m256 high = _mm256_add_ps(_mm256_mul_ps(c3, t), c2);
    return _mm256_add_ps(_mm256_mul_ps(_mm256_add_ps(_mm256_mul_ps(high, t), c1), t), c0);
  };
  const __m256 ax = xOf(a), bx = xOf(b), cx = xOf(c), sx = xOf(start);
  const __m256 ay = yOf(a), by = yOf(b), cy = yOf(c), sy = yOf(start);
  const __m256 width = _mm256_set1_ps(frame.width);
  const __m256i height = _mm256_set1_epi32(frame.height);
  __m256i number = _mm256_setr_epi32(1, 2, 3, 4, 5, 6, 7, 8);
  for (int k = 0; k < count; k += 8) {
    const __m256 t = _mm256_mul_ps(_mm256_cvtepi32_ps(number), _mm256_set1_ps(h));
    number = _mm256_add_epi32(number, _mm256_set1_epi32(8));
    const __m256 x = at(t, ax, bx, cx, sx);
    const __m256 y = _mm256_mul_ps(at(t, ay, by, cy, sy), _mm256_set1_ps(kUnitsPerPixel));
    const __m256i units = _mm256_cvttps_epi32(_mm256_add_ps(y, _mm256_set1_ps(0.5F)));
    _mm256_storeu_ps(xs + k, _mm256_min_ps(_mm256_max_ps(x, _mm256_setzero_ps()), width));
    store(ys + k, _mm256_min_epi32(_mm256_max_epi32(units, _mm256_setzero_si256()), height));
  }
  return count;
}

int joinCorners(const float* x, const std::int32_t* y, std::size_t count, Edge* edges) {
  int runs = 0;
  unsigned wasDown = 0;
  for (std::size_t i = 0; i + 1 < count; i += 8) {
    const __m256 x0 = _mm256_loadu_ps(x + i);
    const __m256 x1 = _mm256_loadu_ps(x + i + 1);
    const __m256i y0 = load(y + i);
    const __m256i y1 = load(y + i + 1);
    // Edges i and i + 4 come to stand in one register.
    const __m256d x01 = _mm256_castps_pd(_mm256_unpacklo_ps(x0, x1));
    const __m256d x23 = _mm256_castps_pd(_mm256_unpackhi_ps(x0, x1));
    const __m256d y01 = _mm256_castsi256_pd(_mm256_unpacklo_epi32(y0, y1));
    const __m256d y23 = _mm256_castsi256_pd(_mm256_unpackhi_epi32(y0, y1));
    const auto put = [&](std::size_t at, __m256d two) {
      _mm256_storeu2_m128d(reinterpret_cast<double*>(edges + at + 4),
                           reinterpret_cast<double*>(edges + at), two);
    };
    put(i, _mm256_unpacklo_pd(x01, y01));
    put(i + 1, _mm256_unpackhi_pd(x01, y01));
    put(i + 2, _mm256_unpacklo_pd(x23, y23));
    put(i + 3, _mm256_unpackhi_pd(x23, y23));
    unsigned isDown = bits(_mm256_cmpgt_epi32(y1, y0));
    const std::size_t left = count - 1 - i;
    if (left < 8) isDown &= (1U << left) - 1;
    runs += __builtin_popcount(isDown & ~(isDown << 1 | wasDown));
    wasDown = isDown >> 7;
  }
  return runs;
}

// Edges inside one row, of which small shapes have many, eight at a time. The others one by one,
// eight rows at a time: most edges of small shapes end within them, so there is no loop whose end
// the processor could guess wrong. Pieces beyond an edge's end are overwritten by the next edge.
void cutEdges(EdgeRows& rows, Pieces& p) {
  const __m256i steps = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  const __m256i strides = _mm256_mullo_epi32(steps, _mm256_set1_epi32(rows.stride));
  const __m256i depths = _mm256_slli_epi32(steps, kUnitShift);
  p.count = 0;
  for (; rows.next < rows.count; rows.next += 8) {
    const EdgeGroup group(rows);
    const LongEdges edges(rows, group);
    if (rows.pending == 0) {
      if (p.count + 8 > Pieces::kCapacity) return;
      p.count += SingleRows(rows, group).write(p, p.count);
      rows.pending = edges.set;
    }
    for (; rows.pending != 0; rows.pending &= rows.pending - 1, rows.nextRow = 0) {
      const int e = __builtin_ctz(rows.pending);
      const __m256 x0 = _mm256_broadcast_ss(edges.x0 + e);
      const __m256 x1 = _mm256_broadcast_ss(edges.x1 + e);
      const __m256 slope = _mm256_broadcast_ss(edges.slope + e);
      const __m256i upper = everyLane(edges.y0[e]);
      const __m256i lower = everyLane(edges.y1[e]);
      const __m256i sign = everyLane(edges.sign[e]);
      const auto xAt = [&](__m256i y) {
        const __m256 depth = _mm256_cvtepi32_ps(_mm256_sub_epi32(y, upper));
        return _mm256_add_ps(x0, _mm256_mul_ps(depth, slope));
      };
      const int last = edges.last[e];
      int row = edges.first[e];
      if (row < rows.nextRow) row = rows.nextRow;
      for (; row <= last; row += 8) {
        if (p.count + 8 > Pieces::kCapacity) {
          rows.nextRow = row;
          return;
        }
        const std::size_t at = p.count;
        const __m256i rowTop = _mm256_add_epi32(_mm256_set1_epi32(row << kUnitShift), depths);
        const __m256i rowEnd = _mm256_add_epi32(rowTop, _mm256_set1_epi32(kUnitsPerPixel));
        const __m256i top = _mm256_max_epi32(rowTop, upper);
        const __m256i bottom = _mm256_min_epi32(rowEnd, lower);
        const __m256 isEnd = _mm256_castsi256_ps(_mm256_cmpeq_epi32(bottom, lower));
        _mm256_storeu_ps(p.xa + at, xAt(top));
        _mm256_storeu_ps(p.xb + at, _mm256_blendv_ps(xAt(bottom), x1, isEnd));
        store(p.cover + at, _mm256_sign_epi32(_mm256_sub_epi32(bottom, top), sign));
        store(p.cell + at, _mm256_add_epi32(_mm256_set1_epi32(row * rows.stride), strides));
        const int left = last - row + 1;
        p.count += static_cast<std::size_t>(left < 8 ? left : 8);
      }
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
  for (std::size_t i = 0; i < p.count; ++i) {
    auto* cell = reinterpret_cast<__m128i*>(cells + p.cell[i]);
    const __m128i amounts = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p.amounts[i]));
    _mm_storel_epi64(cell, _mm_add_epi16(_mm_loadl_epi64(cell), amounts));
    if (touched == nullptr) continue;
    touched[p.cell[i] >> kBlockShift] = 1;
    touched[(p.cell[i] + kPieceCells - 1) >> kBlockShift] = 1;
  }
}

}  // namespace glyphwright::raster::avx2
