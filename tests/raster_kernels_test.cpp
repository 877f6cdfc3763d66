// Every set of loops against the plain one: equal bit for bit.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/kernels.h>

#include "raster_kernels.h"

namespace glyphwright::raster {
namespace {

// Another pixel everywhere, of every alpha.
struct Checkered final : PixelSource {
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override {
    for (int i = 0; i < static_cast<int>(count) * 4; i += 4) {
      const int alpha = ((x + i / 4) * 37 + y * 91) & 0xFF;
      for (int c = 0; c < 4; ++c) rgba[i + c] = static_cast<std::uint8_t>(alpha * (c + 1) / 4);
    }
  }
};

void expectZero(const std::vector<std::int16_t>& cells, std::size_t count) {
  EXPECT_TRUE(std::all_of(cells.begin(), cells.begin() + static_cast<std::ptrdiff_t>(count),
                          [](std::int16_t cell) { return cell == 0; }));
}

TEST_P(RasterKernels, RowsOfCellsPaintTheSame) {
  constexpr std::size_t kRows = 7;
  for (const std::size_t width : kCounts) {
    for (int round = 0; round < 40; ++round) {
      SCOPED_TRACE(width);
      const std::size_t before = round % 3 == 0 ? kBlock : 0;
      const std::size_t stride = before + cellStride(static_cast<int>(width));
      const FillRule rule = upTo(1) == 0 ? FillRule::nonZero : FillRule::evenOdd;
      // Cells, and marks of blocks, of which those without one are empty in half of the rounds.
      const auto marked = [&](std::vector<std::uint8_t>& touched) {
        auto values = cells(stride, kRows);
        touched.resize(stride / kBlock * kRows + kTouchedMargin);
        for (std::size_t b = 0; b < stride / kBlock * kRows; ++b) {
          touched[b] = static_cast<std::uint8_t>(upTo(1));
          if (round % 2 == 0 && touched[b] == 0) {
            std::fill_n(values.begin() + static_cast<std::ptrdiff_t>(b * kBlock), kBlock, 0);
          }
        }
        return values;
      };
      std::vector<std::uint8_t> touched;
      std::vector<std::uint8_t> touchedAbove;
      const auto below = marked(touched);
      const auto above = marked(touchedAbove);
      const auto rowsOf = [&](auto& values, const auto& marks, FillRule by) {
        const std::uint8_t* mask = round % 2 == 0 ? &marks[before / kBlock] : nullptr;
        return CellRows{&values[before], stride, mask, kRows, width, by, before};
      };
      const std::size_t between = round % 4 == 0 ? 0 : 12;  // bytes, from row to row
      const std::size_t rowBytes = width * 4 + between;
      const auto ground = premultiplied(rowBytes / 4 * kRows + kBlock);
      // Past the ends of rows anything goes if more rows come; nothing is touched past the last.
      const auto painted = [&](auto paint) {
        auto pixels = ground;
        paint(pixels.data());
        for (std::size_t end = width * 4; end < (kRows - 1) * rowBytes; end += rowBytes) {
          std::fill_n(pixels.begin() + static_cast<std::ptrdiff_t>(end), between, 0);
        }
        return pixels;
      };
      const auto expectSameRows = [&](auto kernel, const auto& paint) {
        expectSame([&](const Kernels& loops) {
          auto values = below;
          const auto pixels = painted([&](std::uint8_t* to) {
            (loops.*kernel)(to, rowBytes, rowsOf(values, touched, rule), paint);
          });
          expectZero(values, values.size());
          return pixels;
        });
      };
      expectSameRows(&Kernels::writeCells, color());
      expectSameRows(&Kernels::blendCells, color());
      std::uint32_t byRow[kRows];
      std::memcpy(byRow, premultiplied(kRows).data(), sizeof(byRow));
      expectSameRows(&Kernels::writeCellsByRow, &byRow[0]);
      expectSameRows(&Kernels::blendCellsByRow, &byRow[0]);
      const Checkered source;
      std::vector<std::uint8_t> room(2 * rowBytes + kBlock * 4);
      const SourceRows ofSource{source, 3, -5, room.data(), round % 3 == 0};
      expectSameRows(&Kernels::writeCellsOf, ofSource);
      expectSameRows(&Kernels::blendCellsOf, ofSource);
      const SolidColor inks[2] = {color(), color()};
      expectSame([&](const Kernels& loops) {
        auto a = below;
        auto b = above;
        const auto pixels = painted([&](std::uint8_t* to) {
          loops.writeTwoCells(to, rowBytes, rowsOf(a, touched, rule),
                              rowsOf(b, touchedAbove, FillRule::nonZero), inks[0], inks[1]);
        });
        expectZero(a, a.size());
        expectZero(b, b.size());
        return pixels;
      });
      const int carry = upTo(2 * kUnitsPerPixel) - kUnitsPerPixel;
      expectSame([&](const Kernels& loops) {
        auto values = below;
        std::vector<std::uint16_t> out(3 * stride);
        loops.sumInset(values.data(), stride, rule, out.data(), &out[stride]);
        expectZero(values, stride);
        values = below;
        const int sum = loops.sumNarrow(values.data(), stride, carry, rule, &out[2 * stride]);
        expectZero(values, stride);
        return std::pair(sum, out);
      });
    }
  }
}

TEST_P(RasterKernels, PixelsComposeTheSame) {
  for (const std::size_t count : kCounts) {
    for (int round = 0; round < 40; ++round) {
      SCOPED_TRACE(count);
      const auto levels = coverage(count);
      const auto above = coverage(count);
      const auto cast = coverage(count);
      const auto source = premultiplied(count);
      const auto below = premultiplied(count + 3);  // the last three are not to be touched
      const SolidColor ink = color();
      const SolidColor other = color();
      expectSame([&](const Kernels& k) {
        std::vector<std::vector<std::uint8_t>> to(5, below);
        k.writeSolid(to[0].data(), levels.data(), count, ink);
        k.blendSolid(to[1].data(), levels.data(), count, ink);
        k.writePixels(to[2].data(), levels.data(), count, source.data());
        k.blendPixels(to[3].data(), levels.data(), count, source.data());
        k.writeInset(to[4].data(), {levels.data(), cast.data(), above.data()}, count, ink, other);
        auto product = levels;
        k.multiplyCoverage(product.data(), cast.data(), count);
        return std::pair(to, product);
      });
    }
  }
}

TEST_P(RasterKernels, TwoColoursComposeTheSame) {
  constexpr std::size_t kRows = 3;
  for (const std::size_t count : kCounts) {
    for (int round = 0; round < 40; ++round) {
      // The upper colour's columns; what lies beside its rows is not to count.
      const auto from = static_cast<std::size_t>(upTo(static_cast<int>(count) - 1));
      const std::size_t width =
          1 + static_cast<std::size_t>(upTo(static_cast<int>(count - from) - 1));
      const std::size_t stride = width + 4;
      const auto below = coverage(kRows * (count + 5));
      const auto above = coverage(kRows * stride + 2 * kBlock);
      const auto canvas = premultiplied(kRows * (count + 3));  // three of each row are not touched
      const TwoCoverages coverages{below.data(), count + 5, above.data() + kBlock, stride, kRows,
                                   count,        from,      from + width};
      SolidColor ink = color();
      // Often black, or but for one channel.
      for (int c = 0; c < 3; ++c) {
        if (upTo(1) == 0) ink.channels[c] = 0;
      }
      const SolidColor other = color();
      SCOPED_TRACE(testing::Message() << count << " pixels, " << width << " from " << from);
      expectSame([&](const Kernels& loops) {
        auto pixels = canvas;
        loops.writeTwoSolids(pixels.data(), (count + 3) * 4, coverages, ink, other);
        return pixels;
      });
    }
  }
}

TEST_P(RasterKernels, FiltersAreTheSame) {
  for (const std::size_t reach : {0U, 1U, 5U, 31U}) {
    for (const std::size_t blocks : {1U, 2U, 3U, 4U, 7U}) {
      constexpr std::size_t kRows = 3;
      const std::size_t count = blocks * kBlock;
      const std::size_t stride = count + 2 * reach + 5;
      // Sums that go past one saturate on both sides alike.
      const std::vector<std::int16_t> taps(reach + 1,
                                           static_cast<std::int16_t>(40000 / (reach + 2)));
      const auto values = coverage((2 * reach + kRows) * stride);
      expectSame([&](const Kernels& loops) {
        std::vector<std::uint16_t> out(kRows * stride, kGuard);
        loops.filterAlong({out.data(), stride, kRows, count}, values.data(), stride, taps.data(),
                          reach);
        return out;
      });
      std::vector<const std::uint16_t*> rows;
      for (std::size_t k = 0; k < 2 * reach + kRows; ++k) rows.push_back(&values[k * stride]);
      std::shuffle(rows.begin(), rows.end(), random_);
      for (const std::size_t first : {std::size_t{0}, (reach + 1) / 2, reach, reach + 2}) {
        expectSame([&](const Kernels& loops) {
          std::vector<std::uint16_t> out(kRows * stride, kGuard);
          loops.filterDown({out.data(), stride, kRows, count}, &rows[reach], taps.data(), first,
                           reach);
          return out;
        });
      }
    }
  }
}

TEST_P(RasterKernels, PointsMapAndBoxTheSame) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const double matrix[] = {1.5, -0.25, 0.125, 3, -7, 1e3};
  // Both zeros: which of them is the least must not depend on the machine either.
  const double odd[] = {0.0, -0.0, kInfinity, -kInfinity, kNaN, 1e300};
  const auto expectSame = [](const PointBox& a, const PointBox& b) {
    EXPECT_EQ(std::memcmp(&a, &b, 4 * sizeof(double)), 0);
    EXPECT_EQ(a.hasNaN, b.hasNaN);
  };
  for (std::size_t count = 0; count < 12; ++count) {
    for (int round = 0; round < 200; ++round) {
      std::vector<double> points(2 * count);
      const int rare = round % 3;  // none, zeros only, all odd ones
      for (double& v : points) {
        v = real(-9, 9);
        if (rare == 1 && upTo(1) == 0) v = odd[upTo(1)];
        if (rare == 2 && upTo(5) == 0) v = odd[upTo(5)];
      }
      expectSame(fast_.boxPoints(points.data(), count), plain_.boxPoints(points.data(), count));
      std::vector<double> fast = points;
      std::vector<double> plain(points.size());
      expectSame(fast_.mapPoints(fast.data(), count, matrix, fast.data()),
                 plain_.mapPoints(points.data(), count, matrix, plain.data()));
      for (std::size_t i = 0; i < points.size(); ++i) {
        ASSERT_TRUE(fast[i] == plain[i] || (std::isnan(fast[i]) && std::isnan(plain[i])));
      }
    }
  }
  const double corners[] = {4, -1, kNaN, 8, -3, 2};
  const PointBox box = fast_.boxPoints(corners, 3);
  EXPECT_EQ(box.minX, -3);
  EXPECT_EQ(box.minY, -1);
  EXPECT_EQ(box.maxX, 4);
  EXPECT_EQ(box.maxY, 8);
  EXPECT_TRUE(box.hasNaN);
}

TEST_P(RasterKernels, CurvesSampleTheSame) {
  for (const double size : {3.0, 40.0, 900.0, 16000.0}) {
    const CurveFrame frame{-3, 7, static_cast<float>(size),
                           static_cast<std::int32_t>(size) * kUnitsPerPixel, 900.0F};
    for (int round = 0; round < 100; ++round) {
      std::vector<double> points(2 * 13);
      for (double& p : points) p = upTo(1000) * size / 1000 + 4;
      if (round == 0) std::fill_n(points.begin(), 8, 5.0);  // no length at all
      // Curves that share their ends, each with corners of its own.
      expectSame([&](const Kernels& table) {
        std::vector<Curve> curves;
        for (std::uint32_t i = 0; i < 4; ++i) curves.push_back({3 * i, i, 0, 0});
        table.countChords(curves.data(), curves.size(), points.data(), frame);
        std::uint32_t corners = 0;
        std::vector<Segment> ends;
        for (Curve& curve : curves) {
          curve.corner = corners;
          corners += curve.chords;
          ends.push_back({curve.point + 3, corners - 1});
        }
        std::vector<float> x(corners + 8);
        std::vector<std::int32_t> y(corners + 8);
        table.sampleCurves(curves.data(), curves.size(), points.data(), frame, x.data(), y.data());
        table.placeEnds(ends.data(), ends.size(), points.data(), frame, x.data(), y.data());
        x.resize(corners);
        y.resize(corners);
        return std::pair(x, y);
      });
    }
  }
}

// An edge's values, to be compared.
auto valuesOf(const Edge& edge) {
  return std::array{edge.x0, edge.x1, static_cast<float>(edge.y0), static_cast<float>(edge.y1)};
}

TEST_P(RasterKernels, CornersJoinTheSame) {
  for (std::size_t count = 1; count < 40; ++count) {
    std::vector<float> x(count + 8);
    std::vector<std::int32_t> y(count + 8);
    for (std::size_t i = 0; i < count + 8; ++i) {
      x[i] = real(0, 50);
      y[i] = i > 0 && upTo(3) == 0 ? y[i - 1] : upTo(5000);
    }
    expectSame([&](const Kernels& loops) {
      std::vector<Edge> edges(count + 8);
      const int runs = loops.joinCorners(x.data(), y.data(), count, edges.data());
      std::vector<std::array<float, 4>> values;
      for (std::size_t i = 0; i + 1 < count; ++i) values.push_back(valuesOf(edges[i]));
      return std::pair(runs, values);
    });
  }
  // Down, level, down, up, down.
  const float x[16] = {};
  const std::int32_t y[16] = {0, 5, 5, 9, 2, 4};
  Edge edges[16];
  EXPECT_EQ(fast_.joinCorners(x, y, 6, edges), 3);
}

// Machines may cut edges in different orders; what the cells hold in the end is the same.
TEST_P(RasterKernels, EdgesChangeTheSameCells) {
  for (const int height : {1, 5, 24, 300}) {
    for (int round = 0; round < 60; ++round) {
      std::vector<Edge> edges;
      const float width = real(1, 400);
      for (int i = upTo(60); i >= 0; --i) {
        const bool isSmall = upTo(1) == 0;
        Edge e{real(0, width), 0, upTo(height * kUnitsPerPixel), upTo(height * kUnitsPerPixel)};
        if (upTo(2) == 0) {  // low, and often level
          e.y1 = std::clamp(e.y0 + upTo(200) - 100, 0, height * kUnitsPerPixel);
        }
        if (upTo(9) == 0) e.y1 = e.y0;
        e.x1 = upTo(3) == 0 ? e.x0 : isSmall ? std::min(e.x0 + real(0, 3), width) : real(0, width);
        edges.push_back(e);
      }
      // Also a band in the middle, which edges enter and leave.
      const int top = round % 2 == 0 ? 0 : height / 3;
      const int rows = round % 2 == 0 ? height : height / 3 + 1;
      const int left = round % 3;
      const auto cellsOf = [&](const Kernels& table, auto cell) {
        using Cell = decltype(cell);
        std::vector<Cell> cells(416 * static_cast<std::size_t>(rows));
        std::vector<std::uint8_t> touched(cells.size() / kBlock);
        accumulate<Cell>(edges, {cells.data(), 416, touched.data(), top, rows, left}, table);
        std::vector<int> all(cells.begin(), cells.end());
        all.insert(all.end(), touched.begin(), touched.end());
        return all;
      };
      const std::vector<int> expected = cellsOf(plain_, std::int32_t{});
      ASSERT_EQ(cellsOf(fast_, std::int32_t{}), expected);
      const std::vector<int> narrow = cellsOf(plain_, std::int16_t{});
      ASSERT_EQ(cellsOf(fast_, std::int16_t{}), narrow);
      // Each row adds up to the height of the edges in it, whatever the rounding.
      for (int row = 0; row < rows; ++row) {
        int sum = 0;
        for (std::size_t x = 0; x < 416; ++x) {
          sum += expected[416 * static_cast<std::size_t>(row) + x];
        }
        const auto inRow = [&](int y) {
          return std::clamp(y - (top + row) * kUnitsPerPixel, 0, kUnitsPerPixel);
        };
        for (const Edge& e : edges) sum -= inRow(e.y1) - inRow(e.y0);
        ASSERT_EQ(sum, 0) << "row " << row;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sets, RasterKernels, testing::ValuesIn(kernelSets()),
                         [](const auto& set) { return std::string(set.param.name); });

}  // namespace
}  // namespace glyphwright::raster
