// Suppresses the messages of libsword, which prints a line for every failed read, bypassing its log. They would not
// help a user.
#pragma once

#include <memory>

struct RestoreErrors {
    void operator()(const int* kept) const;
};

// The error stream is discarded while this exists.
using MutedErrors = std::unique_ptr<int, RestoreErrors>;
MutedErrors MuteErrors();
