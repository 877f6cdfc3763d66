#include <glyphwright/platform/raster/gradient_ramp.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace glyphwright::raster {
namespace {

// Premultiplies and rounds, to 1/64 levels and then to levels like any other colour.
std::uint32_t packed(const double color[4]) {
  std::uint8_t bytes[4];
  for (int c = 0; c < 4; ++c) {
    const double value = c == 3 ? color[3] : color[c] * color[3];
    bytes[c] = toByte(static_cast<int>(value * kChannelOne + 0.5));
  }
  std::uint32_t word = 0;
  std::memcpy(&word, bytes, sizeof(word));
  return word;
}

// The stops' components lie within 0…1.
void components(const CGColor& color, double to[4]) {
  to[0] = color.red();
  to[1] = color.green();
  to[2] = color.blue();
  to[3] = color.alpha();
}

std::uint32_t packed(const CGColor& color) {
  double values[4];
  components(color, values);
  return packed(values);
}

}  // namespace

GradientRamp::GradientRamp(const CGGradient& gradient, double devicePixels)
    : stops_(gradient.stops()),
      first_(packed(stops_.front().color)),
      last_(packed(stops_.back().color)) {
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

std::uint32_t GradientRamp::entry(std::size_t index) {
  const double place = (static_cast<double>(index) + 0.5) / static_cast<double>(size_);
  if (place < stretch_.from) enter(0);
  if (place >= stretch_.until) {
    std::size_t next = next_ + 1;
    while (next < stops_.size() && stops_[next].location <= place) ++next;
    enter(next);
  }
  if (next_ == 0) return first_;
  if (next_ == stops_.size()) return last_;
  const double part = (place - stretch_.from) * stretch_.perUnit;
  double color[4];
  for (int c = 0; c < 4; ++c) color[c] = stretch_.start[c] + stretch_.change[c] * part;
  return packed(color);
}

std::uint32_t GradientRamp::at(double location) {
  if (!(location >= 0)) return first_;
  if (location >= static_cast<double>(size_)) return last_;
  return entry(static_cast<std::size_t>(location));
}

Ramp GradientRamp::table(std::vector<std::uint32_t>& memory) {
  if (memory.size() < size_ + 2) memory.resize(size_ + 2);
  memory[0] = first_;
  for (std::size_t i = 0; i < size_; ++i) memory[i + 1] = entry(i);
  memory[size_ + 1] = last_;
  return {memory.data(), static_cast<double>(size_ + 1)};
}

}  // namespace glyphwright::raster
