#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// Places and travel.
namespace glyphwright::Location {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("Location.", Places, "Places", (placesIcon),
                        (profileDistanceIcon, "distanceIconPath"), (placemark, "placemarkPath"))

GLYPHWRIGHT_ENUMERATION("Location.", Trevvo, "Trevvo",
                        (trevvoPlacemarkIcon, "trevvoPlacemarkIconPath"),
                        (airplane, "airplanePath"), (airplaneAngled, "angledAirplanePath"))

// clang-format on

}  // namespace glyphwright::Location

#include <glyphwright/catalogue/case_table_end.inc>
