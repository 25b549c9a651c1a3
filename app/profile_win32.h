// The settings file through the private-profile functions of Windows.
#pragma once

#include "app/settings.h"

// The settings file of the directory that is current at the first call, always by its full path: the system would look
// for a bare name in its own folder.
ProfileFile WindowsProfile();
