// The program's own resource scripts, read once for the tests.
#pragma once

#include "resources/resource_script.h"

// Menu, keys and dialogs, with what the build made of the table of readings.
const ResourceScript& Script();
