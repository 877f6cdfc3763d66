#pragma once

#include <glyphwright/catalogue/case_table_begin.inc>

// The user's own profile.
namespace glyphwright::Profile {

// clang-format off: one case on a line

GLYPHWRIGHT_ENUMERATION("Profile.", Profile, "Profile", (profileJobIcon, "jobIconPath"),
                        (profileSchoolIcon, "schoolIconPath"),
                        (profileSchoolOutlineIcon, "schoolOutlineIconPath"),
                        (profileGenderIcon, "genderIconPath"),
                        (controlProfileKeyIcon, "controlProfileKeyIconPath"),
                        (accountUnderReviewIcon, "accountUnderReviewIconPath"),
                        (inappropriateBiographyIcon), (eighteenPlus), (imNotInterestedIcon),
                        (warningIcon))

GLYPHWRIGHT_ENUMERATION("Profile.", Photo, "Photo", (profilePhotoMask), (addPhotosIcon),
                        (inappropriatePhotosIcon))

GLYPHWRIGHT_ENUMERATION("Profile.", Editing, "Editing", (pencilInCircle, "pencilPathInCircle"),
                        (pencil, "pencilPath"), (addItem, "addItemPath"))

// clang-format on

}  // namespace glyphwright::Profile

#include <glyphwright/catalogue/case_table_end.inc>
