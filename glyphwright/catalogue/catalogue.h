#pragma once

#include <glyphwright/catalogue/app.h>
#include <glyphwright/catalogue/gamepad.h>
#include <glyphwright/catalogue/location.h>
#include <glyphwright/catalogue/matches.h>
#include <glyphwright/catalogue/mixer.h>
#include <glyphwright/catalogue/profile.h>
#include <glyphwright/catalogue/recs.h>
#include <glyphwright/catalogue/revenue.h>
#include <glyphwright/catalogue/shapes.h>
#include <glyphwright/catalogue/video_chat.h>

namespace glyphwright {

/// All enumerations of the catalogue. Records only: to read them links no artwork.
inline constexpr const EnumerationRecord* catalogueEnumerations[] = {
    &App::Things::enumeration,
    &App::DeleteAccount::enumeration,
    &App::Info::enumeration,
    &App::Media::enumeration,
    &App::Flames::enumeration,
    &App::Shapes::Text::enumeration,
    &App::Shapes::People::enumeration,
    &App::Shapes::Circles::enumeration,
    &App::Shapes::Arrows::enumeration,
    &App::Shapes::Checks::enumeration,
    &App::Shapes::Pluses::enumeration,
    &App::Shapes::Rectangles::enumeration,
    &App::Shapes::Triangles::enumeration,
    &App::ThirdParty::enumeration,
    &App::Badges::enumeration,
    &Location::Places::enumeration,
    &Location::Trevvo::enumeration,
    &MatchesSection::enumeration,
    &Chat::enumeration,
    &Vinyl::enumeration,
    &Mixer::Room::enumeration,
    &Mixer::Lobby::enumeration,
    &Profile::Profile::enumeration,
    &Profile::Photo::enumeration,
    &Profile::Editing::enumeration,
    &Recs::CardStack::enumeration,
    &Recs::BreakingGeo::enumeration,
    &Recs::ItsAMatch::enumeration,
    &Recs::Badges::enumeration,
    &Recs::Gamepad::Stars::enumeration,
    &Recs::Gamepad::Hearts::enumeration,
    &Recs::Gamepad::Surgo::enumeration,
    &Recs::Gamepad::Nopes::enumeration,
    &Revenue::Features::enumeration,
    &Revenue::Paywall::enumeration,
    &VideoChat::Call::enumeration,
};

}  // namespace glyphwright
