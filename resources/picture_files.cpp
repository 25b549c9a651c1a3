// A .bmp file is a file header of 14 bytes, a bitmap header of 40 bytes, and the rows from the bottom up,
// each padded to a multiple of four bytes; or a palette and the rows as runs of equal pixels. An .ico file is a header
// of 6 bytes, an entry of 16 bytes for each image and the images. An image is a PNG file, or a bitmap header whose
// height is that of pixels and mask together, the pixels, and a mask of one bit per pixel.
#include "resources/picture_files.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

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
    static constexpr std::uint32_t kNotCompressed = 0, kRuns = 1;
    Append32(bytes, kInfoHeader);
    Append32(bytes, static_cast<std::uint32_t>(width));
    Append32(bytes, static_cast<std::uint32_t>(height));
    Append16(bytes, 1);  // plane
    Append16(bytes, static_cast<std::uint32_t>(bitsPerPixel));
    Append32(bytes, bitsPerPixel == 8 ? kRuns : kNotCompressed);
    Append32(bytes, static_cast<std::uint32_t>(pixelBytes));
    for (int i = 0; i < 4; ++i) Append32(bytes, 0);  // resolution and palette
}

static std::string BitmapOf(const Picture& shape, int bitsPerPixel, const std::string& palette,
                            const std::string& pixels) {
    const auto start = kFileHeader + kInfoHeader + static_cast<std::uint32_t>(palette.size());
    std::string bytes = "BM";
    Append32(bytes, start + static_cast<std::uint32_t>(pixels.size()));
    Append32(bytes, 0);
    Append32(bytes, start);
    AppendInfoHeader(bytes, shape.width, shape.height, bitsPerPixel, pixels.size());
    return bytes + palette + pixels;
}

static std::string Bitmap(const Picture& picture, int bitsPerPixel) {
    std::string pixels;
    AppendPixels(pixels, picture, bitsPerPixel, kButtonFace);
    return BitmapOf(picture, bitsPerPixel, "", pixels);
}

std::string BitmapWithAlpha(const Picture& picture) {
    return Bitmap(picture, 32);
}

std::string PlainBitmap(const Picture& picture) {
    return Bitmap(picture, 24);
}

// ---- Palettes -------------------------------------------------------------------------------------------------------

static constexpr std::size_t kMostColors = 256;

using Color = std::array<int, 3>;  // blue, green, red

static Color ColorOf(const Pixel& pixel) {
    return {pixel.blue, pixel.green, pixel.red};
}

// The most frequent colours first.
static std::vector<Color> PaletteOf(const Picture& picture) {
    std::map<Color, int> counts;
    for (const Pixel& pixel : picture.pixels) ++counts[ColorOf(pixel)];
    std::vector<std::pair<int, Color>> order;
    for (const auto& [color, count] : counts) order.emplace_back(-count, color);
    std::sort(order.begin(), order.end());
    std::vector<Color> palette;
    for (const auto& entry : order) palette.push_back(entry.second);
    if (palette.size() > kMostColors) palette.resize(kMostColors);
    return palette;
}

static int Distance(const Color& one, const Color& other) {
    int sum = 0;
    for (std::size_t part = 0; part < one.size(); ++part) sum += (one[part] - other[part]) * (one[part] - other[part]);
    return sum;
}

static int NearestIn(const std::vector<Color>& palette, const Color& color) {
    const auto isNearer = [&](const Color& one, const Color& other) {
        return Distance(one, color) < Distance(other, color);
    };
    return static_cast<int>(std::min_element(palette.begin(), palette.end(), isNearer) - palette.begin());
}

static std::string PaletteBytes(const std::vector<Color>& palette) {
    std::string bytes;
    for (const Color& color : palette) {
        for (const int part : color) AppendByte(bytes, part);
        AppendByte(bytes, 0);
    }
    bytes.resize(kMostColors * 4, '\0');
    return bytes;
}

static void AppendRun(std::string& bytes, int length, int number) {
    AppendByte(bytes, length);
    AppendByte(bytes, number);
}

// Pairs of bytes: how many pixels, and the number of their colour. A count of zero ends the row or the picture.
static void AppendRuns(std::string& bytes, const std::vector<int>& row) {
    static constexpr int kLongest = 255;
    for (std::size_t at = 0, next = 0; at < row.size(); at = next) {
        while (next < row.size() && row[next] == row[at] && next - at < kLongest) ++next;
        AppendRun(bytes, static_cast<int>(next - at), row[at]);
    }
    AppendRun(bytes, 0, 0);
}

std::string PackedBitmap(const Picture& picture) {
    const std::vector<Color> palette = PaletteOf(picture);
    std::map<Color, int> numbers;
    std::string pixels;
    for (int y = picture.height - 1; y >= 0; --y) {
        std::vector<int> row;
        for (int x = 0; x < picture.width; ++x) {
            const Color color = ColorOf(PixelAt(picture, x, y));
            const auto [number, isNew] = numbers.try_emplace(color);
            if (isNew) number->second = NearestIn(palette, color);
            row.push_back(number->second);
        }
        AppendRuns(pixels, row);
    }
    AppendRun(pixels, 0, 1);
    return BitmapOf(picture, 8, PaletteBytes(palette), pixels);
}

// ---- Strips and icons -----------------------------------------------------------------------------------------------

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
