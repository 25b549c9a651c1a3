// Settings files in the working directory, read and written with the private-profile functions of Windows.
#pragma once

#include <string>

#include "app/settings.h"

// The file at `path`, which must outlive the result.
ProfileFile ProfileAt(std::wstring& path);
