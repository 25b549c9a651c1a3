// Pictures of the screen: taking, inspecting, comparing and saving them.
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

// Picture of `area` (screen coordinates, clipped to the screen) once it no longer changes.
Picture PictureOfScreen(const RECT& area);

// Picture of the screen area of `window` including its frame; windows in front of it are in the picture.
Picture PictureOfWindow(HWND window);

// The icon as a window of this background shows it.
Picture PictureOfIcon(HICON icon, int width, int height, std::uint32_t background);

// Colour at a point relative to the picture's upper left corner; the point must be inside the picture.
std::uint32_t ColorAt(const Picture& picture, int x, int y);

// Number of different colours in `area` of the picture; 1 means that nothing is drawn there.
int CountColors(const Picture& picture, const RECT& area);

// Number of pixels of `area` that have the colour.
int CountPixels(const Picture& picture, const RECT& area, std::uint32_t color);

// The smallest rectangle that contains every pixel in which two pictures of the same size differ; all zero when they
// are equal. Pictures of different sizes differ everywhere.
RECT DifferingArea(const Picture& before, const Picture& after);

// Writes <pictures folder>\<name>.png, replacing an older one. Returns whether that succeeded.
bool SavePicture(const Picture& picture, const std::string& name);

// The picture as a PNG file's bytes.
std::string PngBytes(const Picture& picture);
