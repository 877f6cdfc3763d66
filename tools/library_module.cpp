#include "library_module.h"

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string_view>

#include "usage_error.h"

namespace glyphwright::cli {
namespace {

std::string fileContent(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// RFC 4648.
std::string base64(const std::string& bytes) {
  constexpr std::string_view digits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t three = 0;
    for (std::size_t k = i; k < i + 3; ++k) {
      three = three << 8 | (k < bytes.size() ? static_cast<unsigned char>(bytes[k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      text += i + k <= bytes.size() ? digits[three >> (18 - 6 * k) & 63] : '=';
    }
  }
  return text;
}

}  // namespace

std::string moduleElement(const std::filesystem::path& folder) {
  for (const char* build : {"simd", "plain"}) {
    const bool plain = std::string_view(build) == "plain";
    const std::string content =
        fileContent(folder / (plain ? "glyphwright.wasm.gz" : "glyphwright-simd.wasm.gz"));
    if (content.empty()) continue;
    return "<script type=\"text/plain\" id=\"module-" + std::string(build) + "\">" +
           base64(content) + "</script>\n";
  }
  throw UsageError("--module: there is no glyphwright.wasm.gz in " + folder.string() +
                   "; scripts/gallery makes it");
}

}  // namespace glyphwright::cli
