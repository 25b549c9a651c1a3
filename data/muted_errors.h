// libsword prints a line of its own for every read that fails, past its log: nothing that a user could act on.
#pragma once

#include <memory>

struct RestoreErrors {
    void operator()(const int* kept) const;
};

// The error stream leads nowhere as long as this is there.
using MutedErrors = std::unique_ptr<int, RestoreErrors>;
MutedErrors MuteErrors();
