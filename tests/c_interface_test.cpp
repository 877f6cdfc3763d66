// The interface for C beside the one for C++: the same paths, pictures and names.

#include <algorithm>
#include <cstring>
#include <memory>
#include <set>

#include <gtest/gtest.h>

#include <glyphwright/c/glyphwright.h>
#include <glyphwright/catalogue/resolve.h>
#include <glyphwright/glyphwright.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/presets/ready_made.h>

#include "pixels.h"

extern "C" const char* checkInterfaceFromC(void);

namespace glyphwright {
namespace {

struct Free {
  void operator()(glyphwright_path* path) const { glyphwright_path_free(path); }
  void operator()(glyphwright_image* image) const { glyphwright_image_free(image); }
};
using Path = std::unique_ptr<glyphwright_path, Free>;

Path named(const char* name) {
  glyphwright_path* path = nullptr;
  EXPECT_EQ(glyphwright_path_named(name, &path, nullptr), GLYPHWRIGHT_OK) << name;
  return Path(path);
}

std::vector<std::uint8_t> pixelsOf(glyphwright_image* image) {
  const std::unique_ptr<glyphwright_image, Free> owner(image);
  glyphwright_buffer buffer{};
  buffer.struct_size = sizeof buffer;
  EXPECT_EQ(glyphwright_image_buffer(image, &buffer), GLYPHWRIGHT_OK);
  return {buffer.pixels, buffer.pixels + buffer.height * buffer.row_bytes};
}

TEST(CInterface, WorksFromC) {
  EXPECT_STREQ(checkInterfaceFromC(), nullptr);
}

TEST(CInterface, DrawsTheSamePixels) {
  const glyphwright_color colors[] = {{1, 0, 0, 1}, {0, 1, 0.5, 0.5}, {0, 0, 1, 1}};
  glyphwright_attributes a{};
  a.struct_size = sizeof a;
  a.width = 31;
  a.height = 40;
  a.scale = 1.5;
  a.parts = GLYPHWRIGHT_STROKE | GLYPHWRIGHT_BORDER | GLYPHWRIGHT_DROP_SHADOW |
            GLYPHWRIGHT_INSET_SHADOW | GLYPHWRIGHT_GRADIENT;
  a.background = {1, 1, 0.5, 0.5};
  a.stroke_color = {0, 0.2, 0, 1};
  a.stroke_width = 1.5;
  a.border_color = {0.2, 0.5, 1, 1};
  a.border_width = 2;
  a.drop_shadow = {{0, 0, 0, 0.5}, 1, 2, 3};
  a.inset_shadow = {{0, 0, 0.4, 0.8}, 0, 1, 2};
  a.gradient_colors = colors;
  a.gradient_count = 3;
  a.gradient_end = {1, 1};
  glyphwright_image* image = nullptr;
  ASSERT_EQ(glyphwright_image_new(named("Icons.heart").get(), &a, GLYPHWRIGHT_RGBA_STRAIGHT, &image,
                                  nullptr),
            GLYPHWRIGHT_OK);

  const pixels::ScreenScale scale(1.5);
  const std::vector<CGPoint> line = {{0, 0}, {1, 1}};
  const UIImage same = UIBezierPath::heartPath().makeImage(
      {.fillColor = UIColor::clearColor(),
       .backgroundColor = UIColor(1, 1, 0.5, 0.5),
       .stroke = IconStroke(UIColor(0, 0.2, 0, 1), 1.5),
       .border = IconBorder(UIColor(0.2, 0.5, 1, 1), 2),
       .dropShadow = IconShadow(UIColor(0, 0, 0, 0.5), {1, 2}, 3),
       .insetShadow = IconShadow(UIColor(0, 0, 0.4, 0.8), {0, 1}, 2),
       .gradient = IconGradient({UIColor(1, 0, 0, 1), UIColor(0, 1, 0.5, 0.5), UIColor(0, 0, 1, 1)},
                                line, std::vector<CGFloat>{0, 0.5, 1}),
       .size = {31, 40}});
  EXPECT_EQ(pixelsOf(image), same.cgImage().pixels(PixelFormat::straightRGBA));
}

// A drawing of bare strokes in a gradient, and a ring over an opaque ground: both as the program
// draws them.
TEST(CInterface, DrawsIconsThatStandOnTheirOwn) {
  const glyphwright_color colors[] = {{1, 0.5, 0, 1}, {0.5, 0, 0.5, 1}};
  const pixels::ScreenScale scale(2);
  for (const bool hasBorder : {false, true}) {
    glyphwright_attributes a = {};
    a.struct_size = sizeof a;
    a.width = a.height = 24;
    a.scale = 2;
    a.parts = GLYPHWRIGHT_STANDALONE | GLYPHWRIGHT_GRADIENT;
    if (hasBorder) a.parts |= GLYPHWRIGHT_BORDER;
    a.background = {1, 1, 1, 1};
    a.border_color = {0, 0, 1, 1};
    a.border_width = 2;
    a.gradient_colors = colors;
    a.gradient_count = 2;
    IconAttributes look{.backgroundColor = UIColor::whiteColor(),
                        .stroke = IconStroke(UIColor::clearColor(), 0),
                        .gradient = IconGradient({UIColor(1, 0.5, 0, 1), UIColor(0.5, 0, 0.5, 1)}),
                        .size = {24, 24}};
    if (hasBorder) look.border = IconBorder(UIColor(0, 0, 1, 1), 2);
    for (const char* name : {"heartPath", "chatActionBarCloseIcon"}) {
      std::vector<std::uint8_t> drawn(48 * 48 * 4);
      const glyphwright_buffer into = {
          sizeof into, GLYPHWRIGHT_RGBA_PREMULTIPLIED, drawn.data(), 48, 48, 0};
      ASSERT_EQ(glyphwright_render(named(name).get(), &a, &into, nullptr), GLYPHWRIGHT_OK);
      const UIImage same = performSelector(name).makeStandaloneImage(look);
      EXPECT_TRUE(std::ranges::equal(drawn, same.cgImage().rgba())) << name;
      EXPECT_EQ(pixels::at(same, 0, 0), pixels::kWhite) << "the ground lies under the ring";
      EXPECT_NE(pixels::at(same, 24, 24), pixels::kWhite) << "something is drawn";
    }
  }
}

TEST(CInterface, DrawsEveryReadyMadeImageAtTheAskedScale) {
  const pixels::ScreenScale other(3);
  ASSERT_EQ(glyphwright_painting_count(), presets::readyMadeImages().size());
  for (std::size_t i = 0; i < glyphwright_painting_count(); ++i) {
    glyphwright_painting info{};
    info.struct_size = sizeof info;
    ASSERT_EQ(glyphwright_painting_info(i, &info), GLYPHWRIGHT_OK);
    EXPECT_NE(std::strlen(info.keywords), 0U);
    glyphwright_painting_options options{};
    options.struct_size = sizeof options;
    options.scale = 2;
    glyphwright_image* image = nullptr;
    ASSERT_EQ(glyphwright_painting_new(info.name, &options, GLYPHWRIGHT_RGBA_PREMULTIPLIED, &image,
                                       nullptr),
              GLYPHWRIGHT_OK);
    const pixels::ScreenScale two(2);
    const presets::ReadyMadeArguments arguments{.size = {info.width, info.height}};
    const UIImage same = presets::readyMadeImages()[i].draw(arguments);
    EXPECT_EQ(same.size(), (CGSize{info.width, info.height})) << info.name;
    EXPECT_EQ(pixelsOf(image), same.cgImage().pixels(PixelFormat::premultipliedRGBA)) << info.name;
  }
  char text[200];
  const glyphwright_message message{text, sizeof text};
  glyphwright_image* image = nullptr;
  EXPECT_EQ(glyphwright_painting_new("gifNormal", nullptr, 0, &image, &message),
            GLYPHWRIGHT_UNKNOWN_NAME);
  EXPECT_NE(std::strstr(text, "ChatIcons.ActionBar.gifNormalIcon"), nullptr) << text;
}

// Also that every name ends where C looks for its end.
TEST(CInterface, ListsTheWholeCatalogue) {
  std::size_t withoutDrawing = 0;
  std::vector<std::string> listed;
  for (std::size_t tab = 0; tab < glyphwright_tab_count(); ++tab) {
    for (std::size_t s = 0; s < glyphwright_section_count(tab); ++s) {
      listed.emplace_back(glyphwright_section_title(tab, s));
      for (std::size_t i = 0; i < glyphwright_case_count(tab, s); ++i) {
        glyphwright_icon icon{};
        icon.struct_size = sizeof icon;
        ASSERT_EQ(glyphwright_case_info(tab, s, i, &icon), GLYPHWRIGHT_OK);
        listed.push_back(std::string(icon.enumeration) + '.' + icon.name);
        glyphwright_path* path = nullptr;
        const auto status = glyphwright_path_named(listed.back().c_str(), &path, nullptr);
        const Path owner(path);
        EXPECT_EQ(status, icon.has_drawing != 0 ? GLYPHWRIGHT_OK : GLYPHWRIGHT_NO_DRAWING);
        withoutDrawing += icon.has_drawing == 0;
      }
    }
  }
  std::vector<std::string> expected;
  for (const IconTab tab : IconTab::allCases) {
    for (const IconTypeSection& section : tab.tab().sections()) {
      expected.push_back(section.title);
      for (const Pathable& value : section.paths) {
        expected.push_back(std::string(value.enumerationName()).append(".").append(value.name()));
      }
    }
  }
  EXPECT_EQ(listed, expected);
  EXPECT_EQ(withoutDrawing, 1U);
  EXPECT_EQ(glyphwright_section_title(99, 0), nullptr);

  ASSERT_EQ(glyphwright_icon_count(), iconMethodCount);
  for (std::size_t i = 0; i < glyphwright_icon_count(); ++i) {
    glyphwright_icon icon{};
    icon.struct_size = sizeof icon;
    ASSERT_EQ(glyphwright_icon_info(i, &icon), GLYPHWRIGHT_OK);
    EXPECT_EQ(icon.method, iconMethodNames[i]);
    EXPECT_NE(std::strlen(icon.keywords), 0U);
    EXPECT_NE(named(icon.method), nullptr);
  }
}

TEST(CInterface, Searches) {
  const char* names[3] = {};
  std::uint8_t guesses[3] = {};
  std::size_t count = 0;
  ASSERT_EQ(glyphwright_search("hart", 3, names, guesses, &count), GLYPHWRIGHT_OK);
  ASSERT_GE(count, 1U);
  EXPECT_NE(std::strstr(names[0], "eart"), nullptr) << names[0];
  EXPECT_EQ(guesses[0], 1);
}

TEST(CInterface, CutsMessagesOff) {
  char text[] = "xxxxxxxxx";
  const glyphwright_message message{text, 5};
  EXPECT_EQ(glyphwright_path_named(nullptr, nullptr, &message), GLYPHWRIGHT_INVALID_ARGUMENT);
  EXPECT_STREQ(text, "name");
  EXPECT_EQ(text[5], 'x');
  std::set<std::string> texts;
  for (int status = 0; status <= GLYPHWRIGHT_INTERNAL_ERROR + 1; ++status) {
    texts.insert(glyphwright_status_text(status));
  }
  EXPECT_EQ(texts.size(), static_cast<std::size_t>(GLYPHWRIGHT_INTERNAL_ERROR) + 2);
}

}  // namespace
}  // namespace glyphwright
