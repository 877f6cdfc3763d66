#pragma once

/// Everything a program needs to use the icons: paths, the catalogue, search, images, layers,
/// paintings.

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_tab.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/catalogue/resolve.h>
#include <glyphwright/catalogue/search.h>
#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/image_renderer.h>
#include <glyphwright/platform/layers/animation.h>
#include <glyphwright/platform/layers/gradient_layer.h>
#include <glyphwright/platform/layers/shape_layer.h>
#include <glyphwright/platform/shadow.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/presets/chat_icons.h>
#include <glyphwright/presets/preset_icons.h>
#include <glyphwright/presets/referral_icons.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>
#include <glyphwright/version.h>
