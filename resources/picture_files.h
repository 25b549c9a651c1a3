// Encodes pictures as .bmp and .ico files for the resource compiler.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

struct Pixel {
    std::uint8_t blue = 0, green = 0, red = 0, alpha = 0;
    friend bool operator==(const Pixel&, const Pixel&) = default;
};

// Rows from the top down, `width` pixels each; colours are not multiplied by alpha.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;
};

// The pictures side by side; all must have the same height.
Picture Strip(std::span<const Picture> pictures);

// The bytes of a bitmap file with 32 bits per pixel, including alpha.
std::string BitmapWithAlpha(const Picture& picture);

// The bytes of a bitmap file with 24 bits per pixel; the picture should be opaque, because alpha is lost.
std::string PlainBitmap(const Picture& picture);

// The bytes of a bitmap file in runs of equal pixels (BI_RLE8), which is much smaller. Of more than 256 colours the
// most frequent ones stay, and each of the others becomes the one that is nearest. Alpha is lost.
std::string PackedBitmap(const Picture& picture);

// The bytes of an icon file with these images, each square and at most 256 pixels wide. An image is stored as PNG, to
// save space, if `packed` has a PNG file at the same index; otherwise that string is empty.
std::string IconFile(std::span<const Picture> images, std::span<const std::string> packed);
