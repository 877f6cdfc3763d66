#include <glyphwright/catalogue/icon_tab.h>

namespace glyphwright {

GlyphwrightIconType IconTab::tab() const {
  constexpr GlyphwrightIconType tabs[] = {
      {App::title, App::sections},
      {Recs::title, Recs::sections},
      {Location::title, Location::sections},
      {Profile::title, Profile::sections},
      {Matches::title, Matches::sections},
      {Revenue::title, Revenue::sections},
      {VideoChat::title, VideoChat::sections},
      {Mixer::title, Mixer::sections},
  };
  static_assert(std::size(tabs) == std::size(cases));
  return tabs[index()];
}

}  // namespace glyphwright
