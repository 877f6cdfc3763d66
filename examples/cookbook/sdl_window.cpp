#include <SDL.h>
#include <glyphwright/glyphwright.h>

#include <cstdio>
#include <string_view>

using namespace glyphwright;

// An icon in the middle of a window, drawn anew at every size straight into the window's pixels.
void draw(SDL_Window* window) {
  SDL_Surface* surface = SDL_GetWindowSurface(window);
  if (surface == nullptr || surface->format->BytesPerPixel != 4) return;
  SDL_LockSurface(surface);
  const PixelBuffer pixels{.pixels = static_cast<std::uint8_t*>(surface->pixels),
                           .width = std::size_t(surface->w),
                           .height = std::size_t(surface->h),
                           .rowBytes = std::size_t(surface->pitch),
                           .format = surface->format->Rmask == 0xFF
                                         ? PixelFormat::premultipliedRGBA
                                         : PixelFormat::premultipliedBGRA};
  UIBezierPath::flamePath().drawImage({.fillColor = UIColor(1, 0.4, 0.2, 1),
                                       .backgroundColor = UIColor::whiteColor(),
                                       .stroke = IconStroke(UIColor::clearColor(), 0),
                                       .size = {CGFloat(surface->w), CGFloat(surface->h)}},
                                      1, pixels);
  SDL_UnlockSurface(surface);
  SDL_UpdateWindowSurface(window);
}

int main(int, char**) {
  if (SDL_Init(SDL_INIT_VIDEO) != 0) {
    std::fprintf(stderr, "no window: %s\n", SDL_GetError());
    return 1;
  }
  SDL_Window* window = SDL_CreateWindow("Glyphwright", SDL_WINDOWPOS_CENTERED,
                                        SDL_WINDOWPOS_CENTERED, 200, 160, SDL_WINDOW_RESIZABLE);
  draw(window);
  if (std::string_view(SDL_GetCurrentVideoDriver()) == "dummy") {
    SDL_SaveBMP(SDL_GetWindowSurface(window), "sdl_window.bmp");  // nobody would close it
  } else {
    for (SDL_Event event; SDL_WaitEvent(&event) != 0 && event.type != SDL_QUIT;) {
      if (event.type == SDL_WINDOWEVENT) draw(window);
    }
  }
  SDL_DestroyWindow(window);
  SDL_Quit();
}
