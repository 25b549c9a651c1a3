// Start-up and shut-down of the program, and its settings file.
#pragma once

#include "app/setting_texts.h"
#include "win32/windows_api.h"

// The start-up sequence, run while `frame` is being created. False if creation must fail; what was done until then is
// not undone. If there is no memory for the verse lists, start-up stops half-way but returns true: the frame opens
// without text, and the settings are not written at the end.
bool StartUp(HWND frame);

// The shut-down sequence, run while the frame is being destroyed. The settings are written after it.
void ShutDown();

// The settings with which the program starts instead of those of the settings files, and the time at which they were
// written, like a file's stamp. To be called before the start-up.
void StartWith(const SettingTexts& settings, std::uint64_t time);

// Reads them if there are any, otherwise the settings file. For reading only.
ProfileFile FirstSettings();

// The settings as they would be written now. Not before the start-up is complete.
SettingTexts CurrentSettingTexts();

// Writes the settings file, so that it has all of its old or all of its new contents if the program ends in between.
// False if that was not possible; then the settings have been written one by one as far as the system lets them.
bool WriteSettings();
