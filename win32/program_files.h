// Files that come with the program.
#pragma once

#include <string>

// Path of `name`: in the current directory when it is there, else in the program's folder, whether it is there or not.
std::string ProgramFilePath(const std::string& name);

// The program's folder, with its closing backslash.
std::string ProgramFolder();

// Full path of `name` in the current directory.
std::string WorkingFilePath(const std::string& name);
