#pragma once

// The version of these headers; for C and C++. What the numbers promise: docs/versions.md.

#define GLYPHWRIGHT_VERSION_MAJOR 1
#define GLYPHWRIGHT_VERSION_MINOR 0
#define GLYPHWRIGHT_VERSION_PATCH 0

/// One number to compare with, such as 10203 for 1.2.3.
#define GLYPHWRIGHT_VERSION_NUMBER \
  (GLYPHWRIGHT_VERSION_MAJOR * 10000 + GLYPHWRIGHT_VERSION_MINOR * 100 + GLYPHWRIGHT_VERSION_PATCH)
