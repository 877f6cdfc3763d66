#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// Calls between two.
namespace glyphwright::VideoChat {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("VideoChat.", Call, "Call", (flipCameraIcon, "flipCameraIconPath"),
                        (micIcon, "micIconPath"), (micOffIcon, "micOffIconPath"),
                        (telephoneIcon, "telephoneIconPath"), (videoIcon, "videoIconPath"),
                        (videoOffIcon, "videoOffIconPath"))

// clang-format on

}  // namespace glyphwright::VideoChat

#include <glyphwright/catalogue/case_table_end.inc>
