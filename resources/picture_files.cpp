// A .bmp file is a file header of 14 bytes, a bitmap header of 40 bytes and the rows from the bottom up, each padded to
// a multiple of four bytes. An .ico file is a header of 6 bytes, an entry of 16 bytes for each image and the images. An
// image is a PNG file, or a bitmap header whose height is that of pixels and mask together, the pixels, and a mask of
// one bit per pixel.
#include "resources/picture_files.h"

#include <algorithm>

static constexpr std::uint32_t kFileHeader = 14;
static constexpr std::uint32_t kInfoHeader = 40;
static constexpr std::uint32_t kIconHeader = 6;
static constexpr std::uint32_t kIconEntry = 16;

// The usual background of a button.
static constexpr Pixel kButtonFace = {.blue = 192, .green = 192, .red = 192, .alpha = 0};

static void AppendByte(std::string& bytes, int value) {
    bytes.push_back(static_cast<char>(value));
}

static void Append16(std::string& bytes, std::uint32_t value) {
    AppendByte(bytes, static_cast<int>(value & 0xFF));
    AppendByte(bytes, static_cast<int>(value >> 8 & 0xFF));
}

static void Append32(std::string& bytes, std::uint32_t value) {
    Append16(bytes, value & 0xFFFF);
    Append16(bytes, value >> 16);
}

static void FillRow(std::string& bytes, std::size_t start) {
    while ((bytes.size() - start) % 4 != 0) AppendByte(bytes, 0);
}

static const Pixel& PixelAt(const Picture& picture, int x, int y) {
    return picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
}

// Fully transparent pixels are written as `hidden`, for software that ignores alpha.
static void AppendPixels(std::string& bytes, const Picture& picture, int bitsPerPixel, Pixel hidden) {
    for (int y = picture.height - 1; y >= 0; --y) {
        const std::size_t start = bytes.size();
        for (int x = 0; x < picture.width; ++x) {
            const Pixel& drawn = PixelAt(picture, x, y);
            const Pixel& pixel = drawn.alpha == 0 ? hidden : drawn;
            AppendByte(bytes, pixel.blue);
            AppendByte(bytes, pixel.green);
            AppendByte(bytes, pixel.red);
            if (bitsPerPixel == 32) AppendByte(bytes, pixel.alpha);
        }
        FillRow(bytes, start);
    }
}

static void AppendInfoHeader(std::string& bytes, int width, int height, int bitsPerPixel, std::size_t pixelBytes) {
    Append32(bytes, kInfoHeader);
    Append32(bytes, static_cast<std::uint32_t>(width));
    Append32(bytes, static_cast<std::uint32_t>(height));
    Append16(bytes, 1);  // plane
    Append16(bytes, static_cast<std::uint32_t>(bitsPerPixel));
    Append32(bytes, 0);  // not compressed
    Append32(bytes, static_cast<std::uint32_t>(pixelBytes));
    for (int i = 0; i < 4; ++i) Append32(bytes, 0);  // resolution and palette
}

static std::string Bitmap(const Picture& picture, int bitsPerPixel) {
    std::string pixels;
    AppendPixels(pixels, picture, bitsPerPixel, kButtonFace);

    std::string bytes = "BM";
    Append32(bytes, kFileHeader + kInfoHeader + static_cast<std::uint32_t>(pixels.size()));
    Append32(bytes, 0);
    Append32(bytes, kFileHeader + kInfoHeader);
    AppendInfoHeader(bytes, picture.width, picture.height, bitsPerPixel, pixels.size());
    return bytes + pixels;
}

std::string BitmapWithAlpha(const Picture& picture) {
    return Bitmap(picture, 32);
}

std::string PlainBitmap(const Picture& picture) {
    return Bitmap(picture, 24);
}

Picture Strip(std::span<const Picture> pictures) {
    Picture strip;
    if (pictures.empty()) return strip;

    strip.height = pictures.front().height;
    for (const Picture& picture : pictures) strip.width += picture.width;
    for (int y = 0; y < strip.height; ++y)
        for (const Picture& picture : pictures)
            for (int x = 0; x < picture.width; ++x) strip.pixels.push_back(PixelAt(picture, x, y));
    return strip;
}

// A set bit makes the pixel transparent.
static void AppendMask(std::string& bytes, const Picture& picture) {
    for (int y = picture.height - 1; y >= 0; --y) {
        const std::size_t start = bytes.size();
        for (int x = 0; x < picture.width; x += 8) {
            int bits = 0;
            for (int i = 0; i < std::min(8, picture.width - x); ++i)
                if (PixelAt(picture, x + i, y).alpha == 0) bits |= 0x80 >> i;
            AppendByte(bytes, bits);
        }
        FillRow(bytes, start);
    }
}

static std::string IconImage(const Picture& picture) {
    // Without alpha support, transparent pixels are combined with the background by XOR, so they must be black.
    std::string pixels;
    AppendPixels(pixels, picture, 32, Pixel{});
    AppendMask(pixels, picture);

    std::string bytes;
    AppendInfoHeader(bytes, picture.width, picture.height * 2, 32, pixels.size());
    return bytes + pixels;
}

std::string IconFile(std::span<const Picture> images, std::span<const std::string> packed) {
    const std::uint32_t count = static_cast<std::uint32_t>(images.size());
    std::string entries;
    std::string contents;
    for (std::size_t i = 0; i < images.size(); ++i) {
        const std::string image = packed[i].empty() ? IconImage(images[i]) : packed[i];
        AppendByte(entries, images[i].width & 0xFF);  // 256 is written as 0
        AppendByte(entries, images[i].height & 0xFF);
        Append16(entries, 0);  // no palette
        Append16(entries, 1);  // plane
        Append16(entries, 32);
        Append32(entries, static_cast<std::uint32_t>(image.size()));
        Append32(entries, kIconHeader + kIconEntry * count + static_cast<std::uint32_t>(contents.size()));
        contents += image;
    }
    std::string bytes;
    Append16(bytes, 0);
    Append16(bytes, 1);  // an icon
    Append16(bytes, count);
    return bytes + entries + contents;
}
