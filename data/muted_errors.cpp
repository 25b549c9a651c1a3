#include "data/muted_errors.h"

#include <fcntl.h>
#include <unistd.h>

void RestoreErrors::operator()(const int* kept) const {
    dup2(*kept, STDERR_FILENO);
    close(*kept);
    delete kept;
}

MutedErrors MuteErrors() {
    MutedErrors kept(new int(dup(STDERR_FILENO)));
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
    return kept;
}
