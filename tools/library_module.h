#pragma once

#include <filesystem>
#include <string>

namespace glyphwright::cli {

/// Elements for a page that hold the library's modules of a folder: glyphwright.wasm.gz and, for
/// hosts with vector instructions, glyphwright-simd.wasm.gz, both from gzip. Throws UsageError
/// where the first is missing.
std::string moduleElement(const std::filesystem::path& folder);

}  // namespace glyphwright::cli
