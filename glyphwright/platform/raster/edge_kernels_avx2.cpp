#include <glyphwright/platform/raster/edge_kernels_avx2.h>

#include <immintrin.h>

// Curves, edges and pieces eight at a time; kernels_scalar.cpp says what each loop computes.
namespace glyphwright::raster::avx2 {
namespace {

__m256i load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}
void store(void* to, __m256i value) {
  _mm256_storeu_si256(static_cast<__m256i*>(to), value);
}

// What cutting needs to know of eight edges, each running down.
struct EdgeGroup {
  explicit EdgeGroup(const EdgeRows& rows) {
    const std::size_t left = rows.count - rows.next;
    const Edge* edges = rows.edges + rows.next;
    Edge rest[8];
    if (left < 8) {
      for (std::size_t i = 0; i < 8; ++i) rest[i] = edges[i < left ? i : 0];
      edges = rest;
    }
    count = left < 8 ? left : 8;
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
    const __m256 upper = _mm256_blendv_ps(xFrom, xTo, _mm256_castsi256_ps(rises));
    const __m256 lower = _mm256_blendv_ps(xTo, xFrom, _mm256_castsi256_ps(rises));
    const __m256i yUpper = _mm256_min_epi32(yFrom, yTo);
    const __m256i yLower = _mm256_max_epi32(yFrom, yTo);
    const __m256 height = _mm256_cvtepi32_ps(_mm256_sub_epi32(yLower, yUpper));
    _mm256_storeu_ps(x0, upper);
    _mm256_storeu_ps(x1, lower);
    _mm256_storeu_ps(slope, _mm256_div_ps(_mm256_sub_ps(lower, upper), height));
    store(y0, yUpper);
    store(y1, yLower);
    store(sign, _mm256_or_si256(rises, _mm256_set1_epi32(1)));
    const __m256i one = _mm256_set1_epi32(1);
    store(first, _mm256_max_epi32(_mm256_srai_epi32(yUpper, kUnitShift), _mm256_setzero_si256()));
    store(last, _mm256_min_epi32(_mm256_srai_epi32(_mm256_sub_epi32(yLower, one), kUnitShift),
                                 _mm256_set1_epi32(rows.rows - 1)));
  }

  std::size_t count;
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
  const __m128 chords =
      _mm_sqrt_ss(_mm_sqrt_ss(_mm_mul_ss(bendSquare, _mm_set_ss(frame.chordFactor))));
  const float wanted = _mm_cvtss_f32(chords);
  const int count = wanted < kMaxChords - 1 ? static_cast<int>(wanted) + 1 : kMaxChords;

  const float h = 1.0F / static_cast<float>(count);
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

// Eight rows at a time: most edges of small shapes end within them, so there is no loop whose end
// the processor could guess wrong. Pieces beyond the edge's end are overwritten by the next edge.
void cutEdges(EdgeRows& rows, Pieces& p) {
  const __m256i steps = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  const __m256i strides = _mm256_mullo_epi32(steps, _mm256_set1_epi32(rows.stride));
  const __m256i depths = _mm256_slli_epi32(steps, kUnitShift);
  std::size_t count = 0;
  while (rows.next < rows.count) {
    const EdgeGroup group(rows);
    for (std::size_t e = 0; e < group.count; ++e, ++rows.next, rows.nextRow = 0) {
      const __m256 x0 = _mm256_broadcast_ss(group.x0 + e);
      const __m256 x1 = _mm256_broadcast_ss(group.x1 + e);
      const __m256 slope = _mm256_broadcast_ss(group.slope + e);
      const __m256i upper = everyLane(group.y0[e]);
      const __m256i lower = everyLane(group.y1[e]);
      const __m256i sign = everyLane(group.sign[e]);
      const auto xAt = [&](__m256i y) {
        const __m256 depth = _mm256_cvtepi32_ps(_mm256_sub_epi32(y, upper));
        return _mm256_add_ps(x0, _mm256_mul_ps(depth, slope));
      };
      const int last = group.last[e];
      int row = group.first[e];
      if (row < rows.nextRow) row = rows.nextRow;
      for (; row <= last; row += 8) {
        if (count + 8 > Pieces::kCapacity) {
          rows.nextRow = row;
          p.count = count;
          return;
        }
        const __m256i rowTop = _mm256_add_epi32(_mm256_set1_epi32(row << kUnitShift), depths);
        const __m256i rowEnd = _mm256_add_epi32(rowTop, _mm256_set1_epi32(kUnitsPerPixel));
        const __m256i top = _mm256_max_epi32(rowTop, upper);
        const __m256i bottom = _mm256_min_epi32(rowEnd, lower);
        const __m256 isEnd = _mm256_castsi256_ps(_mm256_cmpeq_epi32(bottom, lower));
        _mm256_storeu_ps(p.xa + count, xAt(top));
        _mm256_storeu_ps(p.xb + count, _mm256_blendv_ps(xAt(bottom), x1, isEnd));
        store(p.cover + count, _mm256_sign_epi32(_mm256_sub_epi32(bottom, top), sign));
        store(p.cell + count, _mm256_add_epi32(_mm256_set1_epi32(row * rows.stride), strides));
        const int left = last - row + 1;
        count += static_cast<std::size_t>(left < 8 ? left : 8);
      }
    }
  }
  p.count = count;
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
