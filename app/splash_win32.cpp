#include "app/splash_win32.h"

#include "resources/ids.h"
#include "win32/dpi.h"
#include "win32/screen.h"

// ---- The picture ----------------------------------------------------------------------------------------------------

namespace {

struct TitlePicture {
    int width;  // pixels
    int id;     // 0: the one that the template of the dialog names
};

}  // namespace

static constexpr TitlePicture kPictures[] = {
    {420, 0},
    {525, IDB_TITLE_525},
    {630, IDB_TITLE_630},
    {735, IDB_TITLE_735},
    {840, IDB_TITLE_840},
    {1050, IDB_TITLE_1050},
    {1260, IDB_TITLE_1260},
};

// The largest one that is not larger than the scaling asks for: a picture that is stretched is blurred.
static const TitlePicture& PictureFor(HWND splash) {
    const int wanted = Scaled(splash, kPictures[0].width);
    const TitlePicture* chosen = kPictures;
    for (const TitlePicture& picture : kPictures)
        if (picture.width <= wanted) chosen = &picture;
    return *chosen;
}

// Not by LoadImage, which need not know pictures in runs (BI_RLE8).
static HBITMAP LoadPacked(int id) {
    const HRSRC resource = FindResourceA(nullptr, MAKEINTRESOURCEA(id), RT_BITMAP);
    const HGLOBAL loaded = resource ? LoadResource(nullptr, resource) : nullptr;
    const auto* info = static_cast<const BITMAPINFO*>(loaded ? LockResource(loaded) : nullptr);
    if (!info) return nullptr;
    static constexpr int kMostColors = 256;
    const HDC screen = GetDC(nullptr);
    const HBITMAP bitmap =
        CreateDIBitmap(screen, &info->bmiHeader, CBM_INIT, &info->bmiColors[kMostColors], info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

// Returns the picture that the control had, which belongs to the caller.
static HBITMAP ExchangePicture(HWND control, HBITMAP picture) {
    const auto parameter = reinterpret_cast<LPARAM>(picture);
    return reinterpret_cast<HBITMAP>(SendMessageA(control, STM_SETIMAGE, IMAGE_BITMAP, parameter));
}

static void TakePicture(HWND control, const TitlePicture& picture) {
    const HBITMAP loaded = picture.id != 0 ? LoadPacked(picture.id) : nullptr;
    if (loaded) DeleteObject(ExchangePicture(control, loaded));
}

// ---- The dialog -----------------------------------------------------------------------------------------------------

static SIZE SizeOfPicture(HWND control) {
    BITMAP shape{};
    const auto picture = reinterpret_cast<HBITMAP>(SendMessageA(control, STM_GETIMAGE, IMAGE_BITMAP, 0));
    GetObjectA(picture, sizeof shape, &shape);
    return {shape.bmWidth, shape.bmHeight};
}

// Moves the right and the lower edge of `window`, and the window itself down.
static void Grow(HWND window, SIZE by, int down) {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetAncestor(window, GA_PARENT), reinterpret_cast<POINT*>(&place), 2);
    SetWindowPos(window, nullptr, static_cast<int>(place.left), static_cast<int>(place.top) + down,
                 static_cast<int>(place.right - place.left + by.cx), static_cast<int>(place.bottom - place.top + by.cy),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// The dialog grows or shrinks with its font, which no picture fits exactly.
static void FitToPicture(HWND splash, HWND control) {
    RECT place{};
    GetClientRect(control, &place);
    const SIZE picture = SizeOfPicture(control);
    if (picture.cx == 0) return;
    const SIZE more{picture.cx - place.right, picture.cy - place.bottom};
    Grow(splash, more, 0);
    Grow(control, more, 0);
    Grow(GetDlgItem(splash, IDC_SPLASH_LINE), {more.cx, 0}, static_cast<int>(more.cy));
}

static INT_PTR CALLBACK SplashProcedure(HWND splash, UINT message, WPARAM, LPARAM) {
    const HWND control = GetWindow(splash, GW_CHILD);
    if (message == WM_INITDIALOG) {
        TakePicture(control, PictureFor(splash));
        FitToPicture(splash, control);
        CenterOnScreen(splash);
    }
    if (message == WM_DESTROY) DeleteObject(ExchangePicture(control, nullptr));  // the control deletes only its own
    return message == WM_INITDIALOG;
}

HWND ShowSplash(HWND frame) {
    const HWND splash = CreateDialogParamA(GetModuleHandleA(nullptr), "SPLASHSCREEN", frame, SplashProcedure, 0);
    ShowWindow(splash, SW_SHOWNA);
    UpdateWindow(splash);
    return splash;
}
