#include <glyphwright/platform/raster/cell_bands.h>

#include <algorithm>
#include <bit>

namespace glyphwright::raster {
namespace {

// A region this small is kept in the nearest cache as a whole.
constexpr std::size_t kDenseCells = 128 * 144;
// Bands of rows are as high as the near caches take, so that few edges are met twice.
constexpr std::size_t kBandCells = 64 * 1024;
constexpr int kLeastBandRows = 32;
constexpr std::uint32_t kNoEdge = ~std::uint32_t{0};

// A power of two.
int bandRowsFor(std::size_t stride) {
  return std::max(static_cast<int>(std::bit_floor(kBandCells / stride)), kLeastBandRows);
}

template <typename Cell>
LineVector<Cell>& cellsOf(CellMemory& memory) {
  if constexpr (sizeof(Cell) == 2) {
    return memory.narrowCells;
  } else {
    return memory.wideCells;
  }
}

// Drops the edges that end above a height. Which do nobody can foretell, so all are written.
void keepBelow(std::vector<Edge>& active, int units) {
  std::size_t kept = 0;
  for (const Edge& e : active) {
    active[kept] = e;
    kept += std::max(e.y0, e.y1) > units ? 1 : 0;
  }
  active.resize(kept);
}

}  // namespace

template <typename Cell>
CellBands<Cell>::CellBands(const EdgeList& edges, const PixelRect& area, CellMemory& memory,
                           const Kernels& kernels)
    : edges_(edges),
      memory_(memory),
      kernels_(kernels),
      height_(area.height()),
      top_(edges.region.y0 - area.y0),
      before_(static_cast<std::size_t>(edges.beyondLeft)) {
  const std::size_t stride = cellStride(edges.beyondLeft + area.width() + edges.beyondRight);
  const bool isDense = stride * static_cast<std::size_t>(height_) <= kDenseCells;
  bandRows_ = isDense ? height_ : std::min(height_, bandRowsFor(stride));
  LineVector<Cell>& cells = cellsOf<Cell>(memory);
  const std::size_t wanted = stride * static_cast<std::size_t>(bandRows_);
  if (cells.size() < wanted) cells.resize(wanted);
  band_ = {cells.data(), stride, nullptr, 0, 0, edges.region.x0 - area.x0};
  if (isDense) return;
  memory.touched.assign(wanted / kBlock + kTouchedMargin, 0);
  band_.touched = memory.touched.data();
  if (bandRows_ < height_) listByBand((height_ + bandRows_ - 1) / bandRows_);
}

// Lists the edges by the band in which they start; level ones come last.
template <typename Cell>
void CellBands<Cell>::listByBand(int bands) {
  auto& heads = memory_.bandHeads;
  auto& links = memory_.edgeLinks;
  heads.assign(static_cast<std::size_t>(bands) + 1, kNoEdge);
  if (links.size() < edges_.count) links.resize(edges_.count);
  const int shift = std::countr_zero(static_cast<unsigned>(bandRows_)) + kUnitShift;
  const int top = top_ * kUnitsPerPixel;
  std::uint32_t at = 0;
  for (const Edge& e : edges_.edges()) {
    const int start = (std::max(std::min(e.y0, e.y1), 0) + top) >> shift;
    std::uint32_t& head = heads[static_cast<std::size_t>(e.y0 == e.y1 ? bands : start)];
    links[at] = head;
    head = at++;
  }
  memory_.activeEdges.clear();
}

template <typename Cell>
void CellBands<Cell>::openNext() {
  firstRow_ = end();
  band_.firstRow = firstRow_ - top_;
  band_.rows = std::min(bandRows_, height_ - firstRow_);
  std::span<const Edge> inBand = edges_.edges();
  if (bandRows_ < height_) {
    auto& active = memory_.activeEdges;
    keepBelow(active, band_.firstRow * kUnitsPerPixel);
    std::uint32_t next = memory_.bandHeads[static_cast<std::size_t>(firstRow_ / bandRows_)];
    for (; next != kNoEdge; next = memory_.edgeLinks[next]) {
      active.push_back(edges_.edges()[next]);
    }
    inBand = active;
  }
  accumulate<Cell>(inBand, band_, kernels_);
  if (!edges_.sums.empty()) addSums();
}

// These are the cells of the same rows, as long as the area is the edges' own.
template <typename Cell>
void CellBands<Cell>::addSums() {
  const std::size_t count = band_.stride * static_cast<std::size_t>(band_.rows);
  const std::int32_t* from =
      edges_.sums.data() + band_.stride * static_cast<std::size_t>(band_.firstRow);
  for (std::size_t i = 0; i < count; ++i) {
    if (from[i] == 0) continue;
    band_.cells[i] =
        static_cast<Cell>(static_cast<unsigned>(band_.cells[i]) + static_cast<unsigned>(from[i]));
    if (band_.touched != nullptr) band_.touched[i / kBlock] = 1;
  }
}

template <typename Cell>
CellBands<Cell>::~CellBands() {
  if (takenBack_ != end())
    std::fill_n(band_.cells, band_.stride * static_cast<std::size_t>(bandRows_), Cell{0});
}

template <typename Cell>
void CellBands<Cell>::takeBack(int row, int rows) {
  takenBack_ = row + rows;
  if (band_.touched == nullptr) return;
  std::fill_n(marks(row), band_.stride / kBlock * static_cast<std::size_t>(rows), 0);
}

template class CellBands<std::int16_t>;
template class CellBands<std::int32_t>;

}  // namespace glyphwright::raster
