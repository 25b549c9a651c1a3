// When to write the session file (app/session.h): soon after a change, but neither for each key nor without a change.
//
// Times are milliseconds of a clock that never goes back; 0 is no time.
#pragma once

#include <cstdint>

inline constexpr std::uint64_t kSessionCheckPause = 300;

struct SessionPace {
    std::uint64_t checkAt = 0;                       // time of the next check for changes
    std::uint64_t unsavedSince = 0;                  // time of the check that found the first change not yet written
    std::uint64_t longestWait = kSessionCheckPause;  // from then on, while the changes go on
    std::uint64_t retryAt = 0;                       // after a failed write
    int failures = 0;                                // in a row
};

// What a check finds.
struct SessionCheck {
    bool differsFromFile = false;
    bool differsFromLastCheck = false;
};

// Something may have changed: plans a check unless one is planned already.
void NoteActivity(SessionPace& pace, std::uint64_t now);

// Is the planned check due?
bool IsCheckDue(const SessionPace& pace, std::uint64_t now);

// Must the file be written now? Yes if it is outdated and nothing has changed since the last check, or if it has been
// outdated for `longestWait`; so a change is written within 0.6 seconds when no other follows it. Plans the next check;
// there is none if the file is up to date.
bool IsWriteDue(SessionPace& pace, const SessionCheck& check, std::uint64_t now);

// After a write that took `duration` until `now`. The longer it takes, as on a slow stick, the rarer are the writes
// during steady typing: from a change to the end of its write there are 0.6 seconds and up to four times the duration,
// and never more than 5 seconds to the write's start. A failed one is tried again after 2 seconds, then after 4, up to
// 64.
void NoteWrite(SessionPace& pace, bool written, std::uint64_t duration, std::uint64_t now);
