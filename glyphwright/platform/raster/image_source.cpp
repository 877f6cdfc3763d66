#include <glyphwright/platform/raster/image_source.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace glyphwright::raster {
namespace {

constexpr int kMaxSamples = 16;

bool isWhole(double v) {
  return std::fabs(v - std::nearbyint(v)) < 1e-9;
}

void storeRounded(const float sums[4], std::uint8_t* rgba) {
  for (int c = 0; c < 4; ++c) {
    rgba[c] = static_cast<std::uint8_t>(std::clamp(sums[c] + 0.5F, 0.0F, 255.0F));
  }
}

}  // namespace

ImageSource::ImageSource(const ImagePixels& image, const CGAffineTransform& toDevice,
                         const PixelRect& region)
    : image_(image), region_(region) {
  const double determinant = toDevice.a * toDevice.d - toDevice.b * toDevice.c;
  if (determinant == 0 || !std::isfinite(determinant) || image.width <= 0 || image.height <= 0) {
    return;
  }
  toImage_ = CGAffineTransformInvert(toDevice);
  // An image drawn farther away or smaller than this shows nothing, and its coordinates would not
  // fit into whole numbers.
  constexpr double farthest = 1e9;
  const auto within = [](double v, double limit) { return std::fabs(v) <= limit; };
  drawable_ = within(toDevice.tx, farthest) && within(toDevice.ty, farthest) &&
              within(toImage_.a, farthest) && within(toImage_.b, farthest) &&
              within(toImage_.c, farthest) && within(toImage_.d, farthest) &&
              within(toImage_.tx, farthest * farthest) && within(toImage_.ty, farthest * farthest);
  if (!drawable_) return;
  const bool isUpright = toDevice.b == 0 && toDevice.c == 0;
  if (isUpright && std::fabs(toDevice.a - 1) < 1e-9 && std::fabs(toDevice.d - 1) < 1e-9 &&
      isWhole(toDevice.tx) && isWhole(toDevice.ty)) {
    way_ = Way::copied;
    offsetX_ = static_cast<int>(std::nearbyint(toDevice.tx));
    offsetY_ = static_cast<int>(std::nearbyint(toDevice.ty));
  } else if (isUpright) {
    way_ = Way::upright;
    columns_.reserve(static_cast<std::size_t>(region.width()));
    for (int x = region.x0; x < region.x1; ++x) {
      columns_.push_back(
          reachOf(toImage_.a * x + toImage_.tx, toImage_.a * (x + 1) + toImage_.tx, image.width));
    }
  } else {
    // How many image pixels a device pixel spans along the worse axis.
    const double across = std::sqrt(toImage_.a * toImage_.a + toImage_.b * toImage_.b);
    const double down = std::sqrt(toImage_.c * toImage_.c + toImage_.d * toImage_.d);
    const double span = std::max(across, down);
    samples_ = span > 1 ? static_cast<int>(std::min(std::ceil(span), double{kMaxSamples})) : 1;
  }
}

ImageSource::Reach ImageSource::reachOf(double from, double to, int limit) {
  if (from > to) std::swap(from, to);
  const double size = to - from;
  const auto clampedIndex = [limit](double v) {
    return static_cast<int>(std::clamp(std::floor(v), 0.0, static_cast<double>(limit - 1)));
  };
  if (size <= 1) {
    // Enlarging: between the two nearest pixel centres.
    const double center = (from + to) * 0.5 - 0.5;
    const double low = std::floor(center);
    const int a = clampedIndex(low);
    const int b = clampedIndex(low + 1);
    const auto part = static_cast<float>(center - low);
    if (a == b) return {a, {1.0F}};
    return {a, {1.0F - part, part}};
  }
  // Shrinking: each pixel by how much of it is covered.
  const double low = std::clamp(from, 0.0, static_cast<double>(limit));
  const double high = std::clamp(to, 0.0, static_cast<double>(limit));
  const int first = clampedIndex(low);
  const int last = std::max(first, clampedIndex(std::ceil(high) - 1));
  Reach reach{first, {}};
  double total = 0;
  for (int i = first; i <= last; ++i) {
    total += std::max(0.0, std::min(high, i + 1.0) - std::max(low, static_cast<double>(i)));
  }
  for (int i = first; i <= last; ++i) {
    const double part =
        std::max(0.0, std::min(high, i + 1.0) - std::max(low, static_cast<double>(i)));
    reach.weights.push_back(total > 0 ? static_cast<float>(part / total)
                                      : (i == first ? 1.0F : 0.0F));
  }
  return reach;
}

void ImageSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  switch (way_) {
    case Way::copied:
      copied(x, y, count, rgba);
      break;
    case Way::upright:
      upright(x, y, count, rgba);
      break;
    case Way::turned:
      turned(x, y, count, rgba);
      break;
  }
}

void ImageSource::copied(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  const int row = std::clamp(y - offsetY_, 0, image_.height - 1);
  const std::uint8_t* line =
      image_.rgba + static_cast<std::size_t>(row) * static_cast<std::size_t>(image_.width) * 4;
  const int from = x - offsetX_;
  const int until = from + static_cast<int>(count);
  if (from >= 0 && until <= image_.width) {
    std::memcpy(rgba, line + static_cast<std::size_t>(from) * 4, count * 4);
    return;
  }
  for (int i = from; i < until; ++i, rgba += 4) {
    std::memcpy(rgba, line + static_cast<std::size_t>(std::clamp(i, 0, image_.width - 1)) * 4, 4);
  }
}

void ImageSource::upright(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  const Reach rows =
      reachOf(toImage_.d * y + toImage_.ty, toImage_.d * (y + 1) + toImage_.ty, image_.height);
  const std::size_t stride = static_cast<std::size_t>(image_.width) * 4;
  const std::uint8_t* top = image_.rgba + static_cast<std::size_t>(rows.first) * stride;
  for (std::size_t i = 0; i < count; ++i) {
    const Reach& columns = columns_[static_cast<std::size_t>(x - region_.x0) + i];
    float sums[4] = {0, 0, 0, 0};
    const std::uint8_t* line = top + static_cast<std::size_t>(columns.first) * 4;
    for (const float down : rows.weights) {
      const std::uint8_t* pixel = line;
      for (const float across : columns.weights) {
        // All four side by side.
        for (int c = 0; c < 4; ++c) sums[c] += static_cast<float>(pixel[c]) * across * down;
        pixel += 4;
      }
      line += stride;
    }
    storeRounded(sums, rgba + i * 4);
  }
}

void ImageSource::addSample(double u, double v, float sums[4]) const {
  const auto split = [](double at, int limit, int& a, int& b, float& part) {
    const double low = std::floor(at - 0.5);
    a = static_cast<int>(std::clamp(low, 0.0, limit - 1.0));
    b = static_cast<int>(std::clamp(low + 1, 0.0, limit - 1.0));
    part = static_cast<float>(at - 0.5 - low);
  };
  int u0 = 0;
  int u1 = 0;
  int v0 = 0;
  int v1 = 0;
  float right = 0;
  float below = 0;
  split(u, image_.width, u0, u1, right);
  split(v, image_.height, v0, v1, below);
  const auto at = [&](int column, int row) {
    return image_.rgba + (static_cast<std::size_t>(row) * static_cast<std::size_t>(image_.width) +
                          static_cast<std::size_t>(column)) *
                             4;
  };
  const std::uint8_t* p00 = at(u0, v0);
  const std::uint8_t* p10 = at(u1, v0);
  const std::uint8_t* p01 = at(u0, v1);
  const std::uint8_t* p11 = at(u1, v1);
  for (int c = 0; c < 4; ++c) {
    const float top = static_cast<float>(p00[c]) * (1 - right) + static_cast<float>(p10[c]) * right;
    const float foot =
        static_cast<float>(p01[c]) * (1 - right) + static_cast<float>(p11[c]) * right;
    sums[c] += top * (1 - below) + foot * below;
  }
}

void ImageSource::turned(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  const double step = 1.0 / samples_;
  const float share = 1.0F / static_cast<float>(samples_ * samples_);
  for (std::size_t i = 0; i < count; ++i) {
    float sums[4] = {0, 0, 0, 0};
    for (int row = 0; row < samples_; ++row) {
      for (int column = 0; column < samples_; ++column) {
        const CGPoint at = CGPointApplyAffineTransform(
            {x + static_cast<double>(i) + (column + 0.5) * step, y + (row + 0.5) * step}, toImage_);
        addSample(at.x, at.y, sums);
      }
    }
    for (float& sum : sums) sum *= share;
    storeRounded(sums, rgba + i * 4);
  }
}

}  // namespace glyphwright::raster
