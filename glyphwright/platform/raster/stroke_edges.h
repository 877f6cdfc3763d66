#pragma once

#include <glyphwright/platform/raster/edge_writer.h>
#include <glyphwright/platform/raster/stroke_outline.h>

namespace glyphwright::raster {

/// The edges of an outline with `box` around all of it. What reaches a little beyond the region is
/// left as it is, what reaches farther is cut by it.
class OutlineEdges final : public OutlineSink, private CuttingWriter {
 public:
  /// `outline` has the origin, and lends its working memory.
  OutlineEdges(EdgeList& out, const DeviceBox& box, const PixelRect& region, StrokeOutline& outline,
               const Kernels& kernels);

  void take(StrokeOutline& piece) override;
  /// When all pieces have been taken.
  void finish();

 private:
  // Corners of one side, in the order in which they stand; edges run backwards or not.
  struct Line {
    const float* x = nullptr;
    const float* y = nullptr;
    std::size_t count = 0;
    bool backwards = false;
  };
  static Line lineOf(const OutlineSide& side, std::size_t begin, std::size_t end, bool backwards) {
    if (begin == end) return {};  // the side may have no memory yet
    return {side.x.data() + begin, side.y.data() + begin, end - begin, backwards};
  }

  void join(const Line& line);
  void joinWhole(const Line& line);
  void joinCut(const Line& line);
  void joinPlaced(std::size_t first, std::size_t last);
  void cutLine(const Line& line);
  void cross(const OutlineSide& from, std::size_t i, const OutlineSide& to, std::size_t j);
  void makeCornerRoom(std::size_t corners);

  bool isWhole_;
  StrokeOutline& outline_;
  RingShift shift_;
};

}  // namespace glyphwright::raster
