#pragma once

#include <algorithm>

#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::raster {

/// Keeps rows of coverage as a mask, times an outer one where given.
class MaskWriter final : public RowSink {
 public:
  MaskWriter(Mask& mask, const Mask* outer, const Kernels& kernels)
      : mask_(mask), outer_(outer), kernels_(kernels) {}

  void row(const CoverageRow& row) override {
    std::uint16_t* to = mask_.row(row.y);
    for (const CoverageSpan& span : row.spans) {
      if (span.constant == CoverageSpan::kVaries) {
        std::copy(row.coverage + span.x0, row.coverage + span.x1, to + span.x0);
      } else {
        std::fill(to + span.x0, to + span.x1, static_cast<std::uint16_t>(span.constant));
      }
    }
    limit(to, row.y);
  }

  bool cells(int y, const CellRows& rows) override {
    const std::size_t count = cellStride(static_cast<int>(rows.width));
    for (std::size_t row = 0; row < rows.rows; ++row) {
      const int at = y + static_cast<int>(row);
      std::uint16_t* to = mask_.row(at);
      std::int16_t* cells = rows.cells + row * rows.stride;
      int carry = 0;
      if (rows.before != 0) {
        carry = kernels_.sumNarrow(cells - rows.before, rows.before, 0, rows.rule, to);
      }
      kernels_.sumNarrow(cells, count, carry, rows.rule, to);
      std::fill(cells + count, cells + rows.stride - rows.before, std::int16_t{0});
      limit(to, at);
    }
    return true;
  }

 private:
  void limit(std::uint16_t* to, int y) const {
    if (outer_ != nullptr) {
      const auto width = static_cast<std::size_t>(mask_.bounds.width());
      kernels_.multiplyCoverage(to, outer_->row(y) + (mask_.bounds.x0 - outer_->bounds.x0), width);
    }
  }

  Mask& mask_;
  const Mask* outer_;
  const Kernels& kernels_;
};

}  // namespace glyphwright::raster
