// The program's resource scripts, parsed once for the tests.
#pragma once

#include "resources/resource_script.h"

// Menu, keys and dialogs, including the generated Devotional menu.
const ResourceScript& Script();
