// The manual as a man page, and completions for shells, made of the same tree of commands that reads the arguments.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/described.h"

// In the language of man (roff).
std::string ManualPage(const DescribedProgram& program, std::string_view version);

// The completion for "bash", "zsh", "fish" or "powershell"; nullopt for another shell.
std::optional<std::string> CompletionFor(const DescribedProgram& program, std::string_view shell);
