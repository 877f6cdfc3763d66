#include <glyphwright/platform/raster/canvas.h>

#include <algorithm>
#include <cstring>

namespace glyphwright::raster {

SolidColor solidColor(double red, double green, double blue, double alpha) {
  const auto unit = [](double v) { return v > 0 ? std::min(v, 1.0) : 0.0; };
  const double a = unit(alpha);
  const auto channel = [&](double v) {
    return static_cast<std::int16_t>(unit(v) * a * kChannelOne + 0.5);
  };
  SolidColor color;
  color.channels[0] = channel(red);
  color.channels[1] = channel(green);
  color.channels[2] = channel(blue);
  color.channels[3] = channel(1);
  color.alpha = static_cast<std::int16_t>(a * kOne + 0.5);
  return color;
}

void fillPixels(std::uint8_t* rgba, std::size_t count, const SolidColor& color) {
  std::uint8_t pixel[4];
  for (int c = 0; c < 4; ++c) pixel[c] = toByte(color.channels[c]);
  std::uint32_t word = 0;
  std::memcpy(&word, pixel, sizeof(word));
  if (word == 0) {
    std::memset(rgba, 0, count * 4);
    return;
  }
  for (std::size_t i = 0; i < count; ++i) std::memcpy(rgba + i * 4, &word, sizeof(word));
}

namespace {

// Pixels that begin where a cache line does, so that no block of them lies across two.
std::shared_ptr<std::uint8_t[]> newPixels(std::size_t bytes) {
  std::size_t space = bytes + kCacheLine - 1;
  auto memory = std::make_shared_for_overwrite<std::uint8_t[]>(space);
  void* at = memory.get();
  auto* aligned = static_cast<std::uint8_t*>(std::align(kCacheLine, bytes, at, space));
  return {std::move(memory), aligned};
}

}  // namespace

Canvas::Canvas(const PixelRect& bounds, const SolidColor& ground, const PixelMemory& memory)
    : bounds_(bounds), rowBytes_(static_cast<std::size_t>(bounds.width()) * 4), ground_(ground) {
  if (memory.callers != nullptr) {
    rowBytes_ = memory.rowBytes;
    pixels_ = {std::shared_ptr<void>(), memory.callers};  // held by nobody
  } else if (memory.left != nullptr) {
    pixels_ = memory.left;
  } else {
    pixels_ = newPixels(rowBytes_ * static_cast<std::size_t>(bounds.height()));
  }
}

void Canvas::setGround(const SolidColor& ground) {
  if (shared_) detach();
  ground_ = ground;
  pristine_ = true;
}

void Canvas::layGround(std::uint8_t* rgba, std::size_t count) const {
  fillPixels(rgba, count, ground_);
}

void Canvas::layRows(int from, int to) {
  if (from >= to) return;
  if (isTight()) {
    layGround(rowAt(from), static_cast<std::size_t>(to - from) * (rowBytes_ / 4));
    return;
  }
  const auto width = static_cast<std::size_t>(bounds_.width());
  for (int y = from; y < to; ++y) layGround(rowAt(y), width);
}

void Canvas::layBeside(int y, int rows, const PixelRect& region) {
  const auto left = static_cast<std::size_t>(region.x0 - bounds_.x0);
  const auto right = static_cast<std::size_t>(bounds_.x1 - region.x1);
  if (left + right == 0) return;
  if (!isTight()) {
    std::uint8_t* row = rowAt(y);
    const std::size_t until = static_cast<std::size_t>(region.x1 - bounds_.x0) * 4;
    for (; rows > 0; --rows, row += rowBytes_) {
      layGround(row, left);
      layGround(row + until, right);
    }
    return;
  }
  layGround(rowAt(y), left);
  // What is right of a row goes on to the left of the next one.
  std::uint8_t* beyond = rowAt(y + 1) - right * 4;
  for (; rows > 1; --rows, beyond += rowBytes_) layGround(beyond, right + left);
  layGround(beyond, right);
}

void Canvas::materialize() {
  if (shared_) detach();
  if (!pristine_) return;
  layRows(bounds_.y0, bounds_.y1);
  pristine_ = false;
}

void Canvas::growTo(const PixelRect& bounds) {
  Canvas larger(bounds, SolidColor{});
  if (!isUntouched()) {
    materialize();
    larger.materialize();
    for (int y = bounds_.y0; y < bounds_.y1; ++y) {
      std::memcpy(larger.rowAt(y) + static_cast<std::size_t>(bounds_.x0 - bounds.x0) * 4, rowAt(y),
                  rowBytes_);
    }
  }
  *this = std::move(larger);
}

void Canvas::multiplyByAlpha(const Canvas& mask) {
  const PixelRect shared = intersection(bounds_, mask.bounds_);
  const auto before = static_cast<std::size_t>(std::max(shared.x0 - bounds_.x0, 0)) * 4;
  const auto after = static_cast<std::size_t>(std::max(shared.x1 - bounds_.x0, 0)) * 4;
  for (int y = bounds_.y0; y < bounds_.y1; ++y) {
    std::uint8_t* rgba = rowAt(y);
    if (shared.isEmpty() || y < shared.y0 || y >= shared.y1) {
      std::memset(rgba, 0, rowBytes_);
      continue;
    }
    if (before > 0) std::memset(rgba, 0, before);
    const std::uint8_t* from =
        mask.rowAt(y) + static_cast<std::size_t>(shared.x0 - mask.bounds_.x0) * 4;
    for (std::size_t i = before; i < after; i += 4) {
      const unsigned alpha = from[i - before + 3];
      for (std::size_t c = i; c < i + 4; ++c) {
        rgba[c] = static_cast<std::uint8_t>((rgba[c] * alpha + 127) / 255);
      }
    }
    if (after < rowBytes_) std::memset(rgba + after, 0, rowBytes_ - after);
  }
}

void Canvas::detach() {
  const std::size_t bytes = rowBytes_ * static_cast<std::size_t>(bounds_.height());
  auto copy = newPixels(bytes);
  std::memcpy(copy.get(), pixels_.get(), bytes);
  pixels_ = std::move(copy);
  shared_ = false;
}

std::shared_ptr<const std::uint8_t[]> Canvas::share() {
  if (pristine_) materialize();
  if (pixels_.use_count() == 0) {
    const std::size_t row = static_cast<std::size_t>(bounds_.width()) * 4;
    auto copy = newPixels(row * static_cast<std::size_t>(bounds_.height()));
    for (int y = bounds_.y0; y < bounds_.y1; ++y) {
      std::memcpy(copy.get() + static_cast<std::size_t>(y - bounds_.y0) * row, rowAt(y), row);
    }
    return copy;
  }
  shared_ = true;
  return pixels_;
}

Canvas::Painter::Painter(Canvas& canvas, const PixelRect& region, const Paint& paint,
                         const Mask* clip, Scratch& scratch, For what)
    : canvas_(canvas),
      region_(region),
      paint_(paint),
      clip_(clip),
      memory_(scratch.lease<PainterMemory>(what)),
      kernels_(*scratch.kernels),
      rows_(paint.source == nullptr ? PixelSource::Rows::vary : paint.source->rows()) {
  if (canvas.shared_) canvas.detach();
  const auto width = static_cast<std::size_t>(region.width());
  if (memory_->coverage.size() < width) memory_->coverage.resize(width);
  if (paint.source != nullptr) {
    // Two rows as the loops want them, and a stretch that they may read beyond.
    const std::size_t second = canvas.isTight() ? canvas.rowBytes_ : 0;
    const std::size_t bytes = second + width * 4 + kBlock * 4;
    if (memory_->source.size() < bytes) memory_->source.resize(bytes);
    if (rows_ == PixelSource::Rows::same) {
      std::uint8_t* row = memory_->source.data();
      paint.source->pixels(region.x0, region.y0, width, row);
      if (second != 0) std::memcpy(row + second, row, width * 4);
    }
  }
  laysGround_ = canvas.pristine_;
  writes_ = canvas.isUntouched();
  if (laysGround_) canvas.layRows(canvas.bounds_.y0, region.y0);
  canvas.pristine_ = false;
}

void Canvas::Painter::finish() {
  if (laysGround_) canvas_.layRows(region_.y1, canvas_.bounds_.y1);
  finished_ = true;
}

// What of some rows the shape's own pixels will not write.
void Canvas::Painter::layGround(int y, int rows) const {
  if (!writes_) {
    canvas_.layRows(y, y + rows);
    return;
  }
  canvas_.layBeside(y, rows, region_);
}

void Canvas::Painter::row(const CoverageRow& row) {
  std::uint8_t* line = canvas_.rowAt(row.y);
  if (laysGround_) layGround(row.y, 1);
  std::uint8_t* rgba = line + static_cast<std::size_t>(region_.x0 - canvas_.bounds_.x0) * 4;
  const CoverageSpan& first = row.spans.front();
  if (row.spans.size() == 1 && first.constant == CoverageSpan::kVaries && clip_ == nullptr &&
      paint_.source == nullptr) {
    solid(rgba, row.coverage, static_cast<std::size_t>(first.x1));
    return;
  }
  for (const CoverageSpan& s : row.spans) span(rgba, s, row.coverage, row.y);
}

bool Canvas::Painter::cells(int y, const CellRows& rows) {
  if (clip_ != nullptr || (paint_.source != nullptr && paint_.sourceAlpha != kOne)) return false;
  const bool byRow = rows_ == PixelSource::Rows::even;
  std::uint8_t* line = canvas_.rowAt(y);
  if (laysGround_) layGround(y, static_cast<int>(rows.rows));
  std::uint8_t* rgba = line + static_cast<std::size_t>(region_.x0 - canvas_.bounds_.x0) * 4;
  if (byRow) {
    memory_->rowColors.resize(rows.rows);
    paint_.source->rowColors(y, memory_->rowColors);
  }
  const std::uint32_t* rowColors = byRow ? memory_->rowColors.data() : nullptr;
  if (canvas_.isTight()) {
    paintCells(rgba, y, rows, rowColors);
    return true;
  }
  CellRows one = rows;
  one.rows = 1;
  for (std::size_t row = 0; row < rows.rows; ++row) {
    paintCells(rgba, y + static_cast<int>(row), one, rowColors);
    rgba += canvas_.rowBytes_;
    one.cells += rows.stride;
    if (one.touched != nullptr) one.touched += rows.stride / kBlock;
    if (rowColors != nullptr) ++rowColors;
  }
  return true;
}

// With a colour a row where there are any.
void Canvas::Painter::paintCells(std::uint8_t* rgba, int y, const CellRows& rows,
                                 const std::uint32_t* rowColors) {
  if (rowColors != nullptr) {
    const auto paint = writes_ ? kernels_.writeCellsByRow : kernels_.blendCellsByRow;
    paint(rgba, canvas_.rowBytes_, rows, rowColors);
  } else if (paint_.source != nullptr) {
    const auto paint = writes_ ? kernels_.writeCellsOf : kernels_.blendCellsOf;
    paint(
        rgba, canvas_.rowBytes_, rows,
        {*paint_.source, region_.x0, y, memory_->source.data(), rows_ == PixelSource::Rows::same});
  } else {
    const auto paint = writes_ ? kernels_.writeCells : kernels_.blendCells;
    paint(rgba, canvas_.rowBytes_, rows, paint_.color);
  }
}

void Canvas::Painter::span(std::uint8_t* rgba, const CoverageSpan& s, const std::uint16_t* coverage,
                           int y) {
  const auto count = static_cast<std::size_t>(s.x1 - s.x0);
  std::uint8_t* to = rgba + static_cast<std::size_t>(s.x0) * 4;
  if (s.constant == 0) {
    if (writes_) std::memset(to, 0, count * 4);
    return;
  }
  const std::uint16_t* levels = coverage + s.x0;
  bool full = s.constant == kOne;
  std::uint16_t* own = memory_->coverage.data();
  if (clip_ != nullptr) {
    const std::uint16_t* clipRow = clip_->row(y) + (region_.x0 + s.x0 - clip_->bounds.x0);
    if (full) {
      levels = clipRow;
    } else {
      if (s.constant == CoverageSpan::kVaries) {
        std::copy_n(levels, count, own);
      } else {
        std::fill_n(own, count, static_cast<std::uint16_t>(s.constant));
      }
      kernels_.multiplyCoverage(own, clipRow, count);
      levels = own;
    }
    full = false;
  } else if (s.constant != CoverageSpan::kVaries &&
             !(full && paint_.source == nullptr && paint_.color.isOpaque())) {
    std::fill_n(own, count, static_cast<std::uint16_t>(s.constant));
    levels = own;
  }

  if (paint_.source == nullptr) {
    if (full && (paint_.color.isOpaque() || writes_)) {
      fillPixels(to, count, paint_.color);
    } else {
      solid(to, levels, count);
    }
    return;
  }
  const bool copies = full && paint_.sourceAlpha == kOne && writes_;
  const std::uint8_t* source = memory_->source.data();
  if (rows_ == PixelSource::Rows::same) {
    source += static_cast<std::size_t>(s.x0) * 4;
    if (copies) std::memcpy(to, source, count * 4);
  } else {
    paint_.source->pixels(region_.x0 + s.x0, y, count, copies ? to : memory_->source.data());
  }
  if (copies) return;
  if (paint_.sourceAlpha != kOne) {
    for (std::size_t i = 0; i < count; ++i) {
      own[i] = static_cast<std::uint16_t>(scaled(levels[i], paint_.sourceAlpha));
    }
    levels = own;
  }
  if (writes_) {
    kernels_.writePixels(to, levels, count, source);
  } else {
    kernels_.blendPixels(to, levels, count, source);
  }
}

void Canvas::Painter::solid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count) {
  if (writes_) {
    kernels_.writeSolid(rgba, coverage, count, paint_.color);
  } else {
    kernels_.blendSolid(rgba, coverage, count, paint_.color);
  }
}

}  // namespace glyphwright::raster
