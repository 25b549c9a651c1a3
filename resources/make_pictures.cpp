// Converts the program's pictures from SVG drawings.
//
//   make_pictures strip  <size>  <out.bmp> <drawing>...             a toolbar's pictures side by side
//   make_pictures bitmap <width> <height> <out.bmp> <drawing>       one picture without transparency
//   make_pictures packed <width> <height> <out.bmp> <drawing>       the same in a smaller file, with fewer colours
//   make_pictures icon   <out.ico> <size> <drawing> [<size> <drawing>]...
//
// Files are written under a temporary name first, so that a parallel build never reads an incomplete file.
#include <cairo.h>
#include <librsvg/rsvg.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "resources/picture_files.h"

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;
using Drawing = std::unique_ptr<RsvgHandle, decltype(&g_object_unref)>;

static constexpr int kPackedSize = 256;  // an icon of this size is stored as PNG

static Drawing Open(const std::string& path) {
    GError* error = nullptr;
    Drawing drawing(rsvg_handle_new_from_file(path.c_str(), &error), &g_object_unref);
    if (drawing) return drawing;
    const std::string reason = error->message;
    g_error_free(error);
    throw std::runtime_error(path + ": " + reason);
}

static Surface Draw(const std::string& path, int width, int height) {
    Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height), &cairo_surface_destroy);
    const Context context(cairo_create(surface.get()), &cairo_destroy);
    const RsvgRectangle whole = {0, 0, static_cast<double>(width), static_cast<double>(height)};
    if (!rsvg_handle_render_document(Open(path).get(), context.get(), &whole, nullptr))
        throw std::runtime_error(path + ": cannot be drawn");
    cairo_surface_flush(surface.get());
    return surface;
}

static std::uint8_t Plain(std::uint32_t multiplied, std::uint32_t alpha) {
    return static_cast<std::uint8_t>((multiplied * 255 + alpha / 2) / alpha);
}

// Cairo's pixels are 32-bit numbers with colours multiplied by alpha.
static Pixel PlainPixel(std::uint32_t number) {
    const std::uint32_t alpha = number >> 24;
    if (alpha == 0) return {};
    return {.blue = Plain(number & 0xFF, alpha),
            .green = Plain(number >> 8 & 0xFF, alpha),
            .red = Plain(number >> 16 & 0xFF, alpha),
            .alpha = static_cast<std::uint8_t>(alpha)};
}

static Picture Pixels(const Surface& surface) {
    Picture picture = {.width = cairo_image_surface_get_width(surface.get()),
                       .height = cairo_image_surface_get_height(surface.get()),
                       .pixels = {}};
    for (int y = 0; y < picture.height; ++y) {
        const unsigned char* row =
            cairo_image_surface_get_data(surface.get()) + y * cairo_image_surface_get_stride(surface.get());
        const auto* numbers = reinterpret_cast<const std::uint32_t*>(row);
        for (int x = 0; x < picture.width; ++x) picture.pixels.push_back(PlainPixel(numbers[x]));
    }
    return picture;
}

static cairo_status_t AppendTo(void* bytes, const unsigned char* data, unsigned length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

static std::string Packed(const Surface& surface) {
    std::string bytes;
    cairo_surface_write_to_png_stream(surface.get(), AppendTo, &bytes);
    return bytes;
}

static void Write(const std::string& path, const std::string& bytes) {
    const std::string draft = path + ".part";
    std::ofstream file(draft, std::ios::binary);
    file << bytes;
    file.close();
    if (!file) throw std::runtime_error(draft + ": cannot be written");
    std::filesystem::rename(draft, path);
}

static int Number(const std::string& text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    if (number < 1) throw std::runtime_error(text + ": not a size");
    return number;
}

static void MakeStrip(std::span<const std::string> arguments) {
    const int size = Number(arguments[0]);
    std::vector<Picture> pictures;
    for (const std::string& path : arguments.subspan(2)) pictures.push_back(Pixels(Draw(path, size, size)));
    Write(arguments[1], BitmapWithAlpha(Strip(pictures)));
}

static Picture DrawnPicture(std::span<const std::string> arguments) {
    return Pixels(Draw(arguments[3], Number(arguments[0]), Number(arguments[1])));
}

static void MakeIcon(std::span<const std::string> arguments) {
    std::vector<Picture> images;
    std::vector<std::string> packed;
    for (std::size_t i = 1; i + 1 < arguments.size(); i += 2) {
        const int size = Number(arguments[i]);
        const Surface surface = Draw(arguments[i + 1], size, size);
        images.push_back(Pixels(surface));
        packed.push_back(size == kPackedSize ? Packed(surface) : std::string());
    }
    Write(arguments[0], IconFile(images, packed));
}

static int Run(std::span<const std::string> arguments) {
    const std::string verb = arguments.empty() ? "" : arguments[0];
    if (verb == "strip" && arguments.size() >= 4)
        MakeStrip(arguments.subspan(1));
    else if (verb == "bitmap" && arguments.size() == 5)
        Write(arguments[3], PlainBitmap(DrawnPicture(arguments.subspan(1))));
    else if (verb == "packed" && arguments.size() == 5)
        Write(arguments[3], PackedBitmap(DrawnPicture(arguments.subspan(1))));
    else if (verb == "icon" && arguments.size() >= 4)
        MakeIcon(arguments.subspan(1));
    else {
        std::fputs("use: make_pictures strip|bitmap|packed|icon ... (see the top of make_pictures.cpp)\n", stderr);
        return 2;
    }
    return 0;
}

int main(int count, char** words) {
    const std::vector<std::string> arguments(words + 1, words + count);
    try {
        return Run(arguments);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "make_pictures: %s\n", failure.what());
        return 1;
    }
}
