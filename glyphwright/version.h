#pragma once

// The version of these headers; for C and C++. docs/versions.md says what the numbers promise.

#define GLYPHWRIGHT_VERSION_MAJOR 1
#define GLYPHWRIGHT_VERSION_MINOR 0
#define GLYPHWRIGHT_VERSION_PATCH 0

/// One number to compare with, such as 10203 for 1.2.3.
#define GLYPHWRIGHT_VERSION_NUMBER \
  (GLYPHWRIGHT_VERSION_MAJOR * 10000 + GLYPHWRIGHT_VERSION_MINOR * 100 + GLYPHWRIGHT_VERSION_PATCH)

// Said here, before the first line that an older language cannot read.
#if defined(__cplusplus) && __cplusplus < 202002L && (!defined(_MSVC_LANG) || _MSVC_LANG < 202002L)
#error "Glyphwright needs C++20: -std=c++20, or target_compile_features(TARGET PRIVATE cxx_std_20)"
#endif
