// Pictures as files that a resource compiler takes: .bmp and .ico, written from pixels in memory.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

struct Pixel {
    std::uint8_t blue = 0, green = 0, red = 0, alpha = 0;
    friend bool operator==(const Pixel&, const Pixel&) = default;
};

// Rows from the top down, `width` pixels each; colours are plain, not multiplied by alpha.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;
};

// The pictures side by side, all of one height.
Picture Strip(std::span<const Picture> pictures);

// The bytes of a bitmap file of 32 bits a pixel, the fourth byte being alpha.
std::string BitmapWithAlpha(const Picture& picture);

// The bytes of a bitmap file of 24 bits a pixel; alpha is left out, so the picture should have none.
std::string PlainBitmap(const Picture& picture);

// The bytes of an icon file with these images, each square and at most 256 wide. An image of 256 is packed as PNG if
// `packed` has its bytes at the same place, for it would be large otherwise; an empty string there means not packed.
std::string IconFile(std::span<const Picture> images, std::span<const std::string> packed);
