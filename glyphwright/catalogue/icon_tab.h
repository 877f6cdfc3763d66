#pragma once

#include <glyphwright/catalogue/sections.h>

#include <glyphwright/catalogue/case_table_begin.inc>

namespace glyphwright {

// The areas of the catalogue by a short key; `tab()` gives the area.
GLYPHWRIGHT_CASES(IconTab, EnumerationValue, "IconTab", "", (GlyphwrightIconType tab() const;),
                  (app), (recs), (location), (profile), (matches), (revenue), (videoChat), (mixer))

}  // namespace glyphwright

#include <glyphwright/catalogue/case_table_end.inc>
