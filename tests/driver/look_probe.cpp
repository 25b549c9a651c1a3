#include "tests/driver/look_probe.h"

#include <cstring>

#include "tests/driver/import_table.h"

bool SetColorsHere(const SystemColorTable& table) {
    return SetSysColors(table.count, table.elements, table.colors) != 0;
}

int SetMessageFontHere(int height) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const int before = static_cast<int>(metrics.lfMessageFont.lfHeight);
    metrics.lfMessageFont.lfHeight = height;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, SPIF_UPDATEINIFILE | SPIF_SENDCHANGE);
    return before;
}

// ---- High contrast --------------------------------------------------------------------------------------------------

static bool isHighContrast = false;

static BOOL WINAPI TellParameter(UINT action, UINT number, void* value, UINT change) {
    if (action != SPI_GETHIGHCONTRAST) return SystemParametersInfoW(action, number, value, change);
    static_cast<HIGHCONTRASTW*>(value)->dwFlags = HCF_AVAILABLE | (isHighContrast ? HCF_HIGHCONTRASTON : 0);
    return TRUE;
}

bool TellHighContrast(bool isOn) {
    static const bool isReplaced = ReplaceImports([](const char* name) {
        return std::strcmp(name, "SystemParametersInfoW") == 0 ? reinterpret_cast<void*>(&TellParameter) : nullptr;
    });
    isHighContrast = isOn;
    return isReplaced;
}

// ---- Title bars -----------------------------------------------------------------------------------------------------

static int darkTitle = -1;

static HRESULT WINAPI RecordAttribute(HWND, DWORD attribute, const void* value, DWORD size) {
    static constexpr DWORD kDarkMode = 20;
    if (attribute != kDarkMode || size != sizeof(BOOL)) return E_INVALIDARG;
    darkTitle = *static_cast<const BOOL*>(value);
    return S_OK;
}

static FARPROC WINAPI FindProcedure(HMODULE library, const char* name) {
    const bool isRecorded = !IS_INTRESOURCE(name) && std::strcmp(name, "DwmSetWindowAttribute") == 0;
    return isRecorded ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&RecordAttribute))
                      : GetProcAddress(library, name);
}

int DarkTitleSet() {
    static const bool isReplaced = ReplaceImports([](const char* name) {
        return std::strcmp(name, "GetProcAddress") == 0 ? reinterpret_cast<void*>(&FindProcedure) : nullptr;
    });
    return isReplaced ? darkTitle : -1;
}
