// Pictures of the screen: taking them, looking into them, comparing and keeping them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <windows.h>

// Colours are 0xRRGGBB, row by row from the top.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

// What the screen shows of `area` (screen coordinates, cut to the screen) once it stands still.
Picture PictureOfScreen(const RECT& area);

// What the screen shows where `window` stands, its frame included; other windows in front of it are in the picture.
Picture PictureOfWindow(HWND window);

// The icon as a window of this background shows it.
Picture PictureOfIcon(HICON icon, int width, int height, std::uint32_t background);

// Colour at a point counted from the picture's upper left; the point must lie inside.
std::uint32_t ColorAt(const Picture& picture, int x, int y);

// How many different colours stand in `area` of the picture; 1 means that nothing is drawn there.
int CountColors(const Picture& picture, const RECT& area);

// How many pixels of `area` have the colour.
int CountPixels(const Picture& picture, const RECT& area, std::uint32_t color);

// The smallest rectangle that holds every pixel in which two pictures of the same size differ; all zero when they are
// the same. Pictures of different sizes differ everywhere.
RECT DifferingArea(const Picture& before, const Picture& after);

// Writes <pictures folder>\<name>.png, over an older one. Returns whether that succeeded.
bool SavePicture(const Picture& picture, const std::string& name);

// The picture as a PNG file's bytes.
std::string PngBytes(const Picture& picture);
