// How much is tried by tests that try very much. The sanitizers make them five to ten times slower, so with these they
// try a part of it, spread over the whole, unless VERSEWELL_LONG is in the environment. `./check --long` tries
// everything, with the sanitizers and without.
#pragma once

#include <cstdlib>

inline bool TriesAll() {
#ifdef VERSEWELL_SANITIZED
    const char* const isLong = std::getenv("VERSEWELL_LONG");
    return isLong && *isLong != '\0';
#else
    return true;
#endif
}

// `all` of something, or with sanitizers `part` of it.
template <class Amount>
Amount Tried(Amount all, Amount part) {
    return TriesAll() ? all : part;
}
