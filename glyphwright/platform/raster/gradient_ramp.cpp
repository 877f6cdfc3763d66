#include <glyphwright/platform/raster/gradient_ramp.h>

#include <algorithm>
#include <limits>

namespace glyphwright::raster {
namespace {

// The stops' components lie within 0…1.
void components(const CGColor& color, double to[4]) {
  to[0] = color.red();
  to[1] = color.green();
  to[2] = color.blue();
  to[3] = color.alpha();
}

std::uint32_t pixelOf(const CGColor& color, const Kernels& kernels) {
  ColorStretch even;
  components(color, even.start);
  constexpr double anywhere = 0;
  std::uint32_t pixel = 0;
  kernels.mixColors(even, &anywhere, 1, &pixel);
  return pixel;
}

}  // namespace

GradientRamp::GradientRamp(const CGGradient& gradient, double devicePixels, const Kernels& kernels)
    : stops_(gradient.stops()),
      kernels_(kernels),
      first_(pixelOf(stops_.front().color, kernels)),
      last_(pixelOf(stops_.back().color, kernels)) {
  const double wanted = devicePixels * 2;
  size_ = wanted > 32 ? static_cast<std::uint32_t>(std::min(wanted, 4096.0)) : 32;
  enter(0);
}

// Goes to the stretch that ends at the stop.
void GradientRamp::enter(std::size_t next) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  next_ = next;
  stretch_.from = -infinity;
  stretch_.until = infinity;
  if (next > 0) stretch_.from = stops_[next - 1].location;
  if (next < stops_.size()) stretch_.until = stops_[next].location;
  if (next == 0 || next == stops_.size()) return;
  stretch_.perUnit = 1 / (stretch_.until - stretch_.from);
  components(stops_[next - 1].color, stretch_.start);
  components(stops_[next].color, stretch_.change);
  for (int c = 0; c < 4; ++c) stretch_.change[c] -= stretch_.start[c];
}

// Goes to the stretch that a place lies in.
void GradientRamp::enterAt(double place) {
  std::size_t next = place < stretch_.from ? 0 : next_;
  while (next < stops_.size() && stops_[next].location <= place) ++next;
  enter(next);
}

void GradientRamp::read(double origin, double step, int index, std::span<std::uint32_t> pixels) {
  constexpr std::size_t kAtOnce = 64;
  double places[kAtOnce];
  for (std::size_t from = 0; from < pixels.size(); from += kAtOnce) {
    const std::size_t count = std::min(pixels.size() - from, kAtOnce);
    std::uint32_t* const out = pixels.data() + from;
    // Stops lie within 0…1: what is before or after the gradient is before or after all of them.
    kernels_.placeEntries(origin, step, index + static_cast<int>(from), size_, count, places);
    for (std::size_t i = 0; i < count;) {
      if (!stretch_.holds(places[i])) enterAt(places[i]);
      // Places rise or fall: what holds the last one holds all between.
      std::size_t end = count;
      while (!stretch_.holds(places[end - 1])) --end;
      if (next_ == 0 || next_ == stops_.size()) {
        std::fill(out + i, out + end, next_ == 0 ? first_ : last_);
      } else {
        kernels_.mixColors(stretch_, places + i, end - i, out + i);
      }
      i = end;
    }
  }
}

Ramp GradientRamp::table(std::vector<std::uint32_t>& memory) {
  if (memory.size() < size_ + 2) memory.resize(size_ + 2);
  memory[0] = first_;
  read(0, 1, 0, {memory.data() + 1, size_});
  memory[size_ + 1] = last_;
  return {memory.data(), static_cast<double>(size_ + 1)};
}

}  // namespace glyphwright::raster
