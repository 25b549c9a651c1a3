// The scaling of the screen, as the user sets it for the whole system.
#pragma once

#include <windows.h>

// While it exists, programs that are started find a screen with `dpi` dots per inch. Those that run already do not
// notice; this test program keeps 96.
struct SystemScaling {
    explicit SystemScaling(int dpi) {
        const DWORD value = static_cast<DWORD>(dpi);
        RegSetKeyValueA(HKEY_CURRENT_USER, kKey, kValue, REG_DWORD, &value, sizeof value);
    }
    ~SystemScaling() { RegDeleteKeyValueA(HKEY_CURRENT_USER, kKey, kValue); }
    SystemScaling(const SystemScaling&) = delete;
    SystemScaling& operator=(const SystemScaling&) = delete;

    static constexpr char kKey[] = "Control Panel\\Desktop";
    static constexpr char kValue[] = "LogPixels";
};
