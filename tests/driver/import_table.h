// Replaces system procedures that the program calls. Part of the probe library.
#pragma once

#include <functional>

// Asks for each procedure that the program's table of imports names, and puts the result in its place unless it is
// null. The library then stays loaded. False if that is impossible, so that nothing is replaced.
bool ReplaceImports(const std::function<void*(const char* name)>& replacementFor);

// Keeps the probe library in the program until its end, because the program may call it. False if that is impossible.
bool StayLoaded();
