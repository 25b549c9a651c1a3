// Minidumps: when the program crashes, a file for a debugger is written that shows where.
#pragma once

#include <string>
#include <vector>

// From now on, when the program ends by an unhandled exception of any thread, by std::terminate or by abort, calls
// `rescue` on that thread and then writes "NAME YYYY-MM-DD HH-MM-SS.dmp.new" into `folder` (a full path, created when
// needed). Then the program ends as it would have without this. A fault in `rescue` only ends `rescue`.
void WatchForCrashes(const std::wstring& folder, const std::wstring& name, void (*rescue)());

// The minidumps in `folder` that were written since the last call, as full paths, oldest first. They lose the ending
// ".new". Only the last five of the folder are kept.
std::vector<std::wstring> TakeNewCrashDumps(const std::wstring& folder);
