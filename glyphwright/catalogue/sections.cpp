#include <glyphwright/catalogue/sections.h>

#include <glyphwright/catalogue/catalogue.h>

namespace glyphwright {
namespace {

template <CatalogueEnumeration... E>
std::vector<IconTypeSection> sectionsOf() {
  std::vector<IconTypeSection> sections;
  sections.reserve(sizeof...(E));
  (sections.push_back({std::string(E::title), {E::allCases.begin(), E::allCases.end()}}), ...);
  return sections;
}

}  // namespace

std::vector<Pathable> GlyphwrightIconType::icons() const {
  std::vector<Pathable> all;
  for (const IconTypeSection& section : sections()) {
    all.insert(all.end(), section.paths.begin(), section.paths.end());
  }
  return all;
}

namespace App {
std::vector<IconTypeSection> sections() {
  return sectionsOf<Things, DeleteAccount, Info, Media, Flames, Badges, Shapes::Text,
                    Shapes::People, Shapes::Circles, Shapes::Arrows, Shapes::Checks, Shapes::Pluses,
                    Shapes::Rectangles, ThirdParty>();
}
}  // namespace App

namespace Recs {
std::vector<IconTypeSection> sections() {
  return sectionsOf<CardStack, BreakingGeo, ItsAMatch, Badges, Gamepad::Stars, Gamepad::Hearts,
                    Gamepad::Surgo, Gamepad::Nopes>();
}
}  // namespace Recs

namespace Location {
std::vector<IconTypeSection> sections() {
  return sectionsOf<Places, Trevvo>();
}
}  // namespace Location

namespace Profile {
std::vector<IconTypeSection> sections() {
  return sectionsOf<Profile, Photo, Editing>();
}
}  // namespace Profile

namespace Matches {
std::vector<IconTypeSection> sections() {
  return sectionsOf<MatchesSection, Chat, Vinyl>();
}
}  // namespace Matches

namespace Revenue {
std::vector<IconTypeSection> sections() {
  return sectionsOf<Features, Paywall>();
}
}  // namespace Revenue

namespace VideoChat {
std::vector<IconTypeSection> sections() {
  return sectionsOf<Call>();
}
}  // namespace VideoChat

namespace Mixer {
std::vector<IconTypeSection> sections() {
  return sectionsOf<Room, Lobby>();
}
}  // namespace Mixer

}  // namespace glyphwright
