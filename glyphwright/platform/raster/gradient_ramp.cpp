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
  double values[4];
  components(color, values);
  constexpr double none[4] = {};
  std::uint32_t pixel = 0;
  kernels.mixColors(values, none, none, 1, &pixel);
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
  // Stops lie within 0…1.
  constexpr double before = -1;
  constexpr double after = 2;
  constexpr std::size_t kAtOnce = 64;
  const auto size = static_cast<double>(size_);
  for (std::size_t from = 0; from < pixels.size(); from += kAtOnce) {
    const std::size_t count = std::min(pixels.size() - from, kAtOnce);
    std::uint32_t* const out = pixels.data() + from;
    double places[kAtOnce];
    for (std::size_t i = 0; i < count; ++i) {
      const double location = origin + step * (index + static_cast<double>(from + i));
      const double entry = static_cast<int>(std::clamp(location, 0.0, size));
      const double within = location >= 0 ? (entry + 0.5) / size : before;
      places[i] = location >= size ? after : within;
    }
    for (std::size_t i = 0; i < count;) {
      if (!stretch_.holds(places[i])) enterAt(places[i]);
      std::size_t end = i + 1;
      while (end < count && stretch_.holds(places[end])) ++end;
      if (next_ == 0 || next_ == stops_.size()) {
        std::fill(out + i, out + end, next_ == 0 ? first_ : last_);
      } else {
        for (std::size_t k = i; k < end; ++k) {
          places[k] = (places[k] - stretch_.from) * stretch_.perUnit;
        }
        kernels_.mixColors(stretch_.start, stretch_.change, places + i, end - i, out + i);
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
