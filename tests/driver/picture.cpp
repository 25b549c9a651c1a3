#include "tests/driver/picture.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <fstream>
#include <functional>
#include <set>
#include <string_view>
#include <thread>

#include "tests/driver/surroundings.h"

// PNG (ISO/IEC 15948): a signature, then chunks of length, name, bytes and CRC. The pixels are one zlib stream (RFC
// 1950) of rows, each preceded by a filter byte. The stream consists of stored blocks (RFC 1951, 3.2.4), which avoids a
// compressor; tests/run_window_tests compresses the files afterwards.

static void AppendBig32(std::string& bytes, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<char>((value >> shift) & 0xFF));
}

static std::uint32_t Crc32(std::string_view bytes) {
    static const std::array<std::uint32_t, 256> table = [] {
        std::array<std::uint32_t, 256> made{};
        for (std::uint32_t n = 0; n < 256; ++n) {
            std::uint32_t value = n;
            for (int bit = 0; bit < 8; ++bit) value = (value & 1) != 0 ? 0xEDB88320u ^ (value >> 1) : value >> 1;
            made[n] = value;
        }
        return made;
    }();
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const char byte : bytes) crc = table[(crc ^ static_cast<unsigned char>(byte)) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

static std::uint32_t Adler32(std::string_view bytes) {
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char byte : bytes) {
        a = (a + static_cast<unsigned char>(byte)) % 65521;
        b = (b + a) % 65521;
    }
    return (b << 16) | a;
}

static void AppendChunk(std::string& png, std::string_view name, std::string_view content) {
    std::string body(name);
    body += content;
    AppendBig32(png, static_cast<std::uint32_t>(content.size()));
    png += body;
    AppendBig32(png, Crc32(body));
}

static std::string ZlibStored(std::string_view bytes) {
    constexpr std::size_t kLargestBlock = 65535;
    std::string stream = "\x78\x01";
    std::size_t at = 0;
    do {
        const std::size_t length = std::min(kLargestBlock, bytes.size() - at);
        const bool isLast = at + length == bytes.size();
        stream.push_back(isLast ? '\x01' : '\x00');
        for (const std::size_t word : {length, ~length}) {
            stream.push_back(static_cast<char>(word & 0xFF));
            stream.push_back(static_cast<char>((word >> 8) & 0xFF));
        }
        stream += bytes.substr(at, length);
        at += length;
    } while (at < bytes.size());
    AppendBig32(stream, Adler32(bytes));
    return stream;
}

std::string PngBytes(const Picture& picture) {
    std::string rows;
    for (int y = 0; y < picture.height; ++y) {
        rows.push_back('\0');
        for (int x = 0; x < picture.width; ++x) {
            const std::uint32_t color = ColorAt(picture, x, y);
            for (const int shift : {16, 8, 0}) rows.push_back(static_cast<char>((color >> shift) & 0xFF));
        }
    }
    std::string header;
    AppendBig32(header, static_cast<std::uint32_t>(picture.width));
    AppendBig32(header, static_cast<std::uint32_t>(picture.height));
    header += std::string_view("\x08\x02\x00\x00\x00", 5);  // eight bits, red green blue, no interlace

    std::string png = "\x89PNG\r\n\x1a\n";
    AppendChunk(png, "IHDR", header);
    AppendChunk(png, "IDAT", ZlibStored(rows));
    AppendChunk(png, "IEND", "");
    return png;
}

bool SavePicture(const Picture& picture, const std::string& name) {
    std::ofstream file(Surroundings().pictures + "\\" + name + ".png", std::ios::binary);
    const std::string png = PngBytes(picture);
    file.write(png.data(), static_cast<std::streamsize>(png.size()));
    return file.good();
}

static Picture Drawn(int width, int height, const std::function<void(HDC canvas, HDC screen)>& draw) {
    Picture picture{width, height, {}};
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), picture.width, -picture.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC screenDc = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screenDc);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    draw(memory, screenDc);
    GdiFlush();
    const auto* first = static_cast<const std::uint32_t*>(bits);
    picture.pixels.assign(first, first + static_cast<std::size_t>(picture.width) * picture.height);
    for (std::uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFF;
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screenDc);
    return picture;
}

static Picture LookAtScreen(const RECT& area) {
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    RECT seen;
    if (!IntersectRect(&seen, &area, &screen)) return {};
    const int width = seen.right - seen.left;
    const int height = seen.bottom - seen.top;
    return Drawn(width, height, [&](HDC canvas, HDC screenDc) {
        BitBlt(canvas, 0, 0, width, height, screenDc, seen.left, seen.top, SRCCOPY);
    });
}

Picture PictureOfIcon(HICON icon, int width, int height, std::uint32_t background) {
    return Drawn(width, height, [&](HDC canvas, HDC) {
        const COLORREF color = RGB(background >> 16 & 0xFF, background >> 8 & 0xFF, background & 0xFF);
        const HBRUSH brush = CreateSolidBrush(color);
        DrawIconEx(canvas, 0, 0, icon, width, height, 0, brush, DI_NORMAL);
        DeleteObject(brush);
    });
}

// The program and this process have separate connections to the X server, so a first picture may miss what the program
// has just drawn. Take pictures until two in a row are the same.
Picture PictureOfScreen(const RECT& area) {
    Picture before = LookAtScreen(area);
    for (int looks = 0; looks < 20; ++looks) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        Picture now = LookAtScreen(area);
        if (now.pixels == before.pixels) return now;
        before = std::move(now);
    }
    return before;
}

Picture PictureOfWindow(HWND window) {
    RECT area;
    GetWindowRect(window, &area);
    return PictureOfScreen(area);
}

std::uint32_t ColorAt(const Picture& picture, int x, int y) {
    return picture.pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                             static_cast<std::size_t>(x));
}

static RECT CutToPicture(const Picture& picture, const RECT& area) {
    return {std::max(0L, area.left), std::max(0L, area.top), std::min<LONG>(picture.width, area.right),
            std::min<LONG>(picture.height, area.bottom)};
}

int CountColors(const Picture& picture, const RECT& area) {
    const RECT cut = CutToPicture(picture, area);
    std::set<std::uint32_t> seen;
    for (int y = cut.top; y < cut.bottom; ++y)
        for (int x = cut.left; x < cut.right; ++x) seen.insert(ColorAt(picture, x, y));
    return static_cast<int>(seen.size());
}

int CountPixels(const Picture& picture, const RECT& area, std::uint32_t color) {
    const RECT cut = CutToPicture(picture, area);
    int count = 0;
    for (int y = cut.top; y < cut.bottom; ++y)
        for (int x = cut.left; x < cut.right; ++x) count += ColorAt(picture, x, y) == color ? 1 : 0;
    return count;
}

RECT DifferingArea(const Picture& before, const Picture& after) {
    if (before.width != after.width || before.height != after.height)
        return {0, 0, std::max(before.width, after.width), std::max(before.height, after.height)};
    RECT area{after.width, after.height, 0, 0};
    for (int y = 0; y < after.height; ++y) {
        for (int x = 0; x < after.width; ++x) {
            if (ColorAt(before, x, y) == ColorAt(after, x, y)) continue;
            area = {std::min<LONG>(area.left, x), std::min<LONG>(area.top, y), std::max<LONG>(area.right, x + 1),
                    std::max<LONG>(area.bottom, y + 1)};
        }
    }
    return area.right == 0 ? RECT{} : area;
}
