// A settings file as text, read as the private-profile functions of Windows read it, for systems that have none.
#pragma once

#include <string>

#include "app/settings.h"

// The bytes of a file.
struct ProfileText {
    std::string text;
};

// The device over `text`, which must outlive it. It cannot write.
ProfileFile DeviceOver(ProfileText& text);
