#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// Plain shapes of the whole application, grouped by kind.
namespace glyphwright::App::Shapes {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("App.Shapes.", Text, "Text", (ellipsis, "ellipsisPath"))

GLYPHWRIGHT_ENUMERATION("App.Shapes.", People, "People", (singlePerson, "singlePersonPath"))

GLYPHWRIGHT_ENUMERATION("App.Shapes.", Circles, "Circles", (circle, "circlePath"),
                        (partialCircleLoadingIcon, "loadingPartialCircleIcon"), (homeCircleIcon),
                        (placesCircleIcon, "placesIconMidCircle"), (liveOpsMoodraPromptCloseButton))

GLYPHWRIGHT_ENUMERATION("App.Shapes.", Arrows, "Arrows", (arrow, "arrowPath"), (adArrowIcon),
                        (arrowDownIcon, "expandableArrowDownIcon"), (dropDownArrowIcon),
                        (arrowUpOut, "arrowUpOutPath"), (disclosureArrow, "disclosureArrowPath"),
                        (undoArrow, "undoArrowPath"), (leftArrowStem, "leftArrowStemPath"),
                        (rightArrowStem, "rightArrowStemPath"),
                        (anchorArrowDown, "anchorArrowPath"), (anchorArrowUp, "anchorArrowUpPath"),
                        (navigationArrowDown, "navigationArrowDownPath"),
                        (navigationArrowLeft, "navigationArrowLeftPath"),
                        (navigationArrowRight, "navigationArrowRightPath"), (webViewBackIcon))

GLYPHWRIGHT_ENUMERATION("App.Shapes.", Checks, "Checks",
                        (messageStandardCheckMarkIcon, "standardCheckMarkIconPath"),
                        (checkmark, "checkmarkPath"), (checkInCircle))

GLYPHWRIGHT_ENUMERATION("App.Shapes.", Pluses, "Pluses", (plusInSquircle, "plusInSquirclePath"),
                        (plusIcon, "plusIconPath"))

GLYPHWRIGHT_ENUMERATION("App.Shapes.", Rectangles, "Rectangles", (roundedButtonBackground),
                        (recWithRoundedCutCornerSlice))

GLYPHWRIGHT_ENUMERATION("App.Shapes.", Triangles, "Triangles", (cornerCutTriangle))

// clang-format on

}  // namespace glyphwright::App::Shapes

#include <glyphwright/catalogue/case_table_end.inc>
