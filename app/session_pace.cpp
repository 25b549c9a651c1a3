// Separate from app/session.cpp, because it is about time and not about files.

#include "app/session_pace.h"

#include <algorithm>

void NoteActivity(SessionPace& pace, std::uint64_t now) {
    if (pace.checkAt == 0) pace.checkAt = now + kSessionCheckPause;
}

bool IsCheckDue(const SessionPace& pace, std::uint64_t now) {
    return pace.checkAt != 0 && now >= pace.checkAt;
}

bool IsWriteDue(SessionPace& pace, const SessionCheck& check, std::uint64_t now) {
    pace.checkAt = 0;
    if (!check.differsFromFile) {
        pace.unsavedSince = 0;
        return false;
    }
    if (pace.unsavedSince == 0) pace.unsavedSince = now;
    pace.checkAt = std::max(now + kSessionCheckPause, pace.retryAt);
    const bool waitedLongEnough = now - pace.unsavedSince >= pace.longestWait;
    return now >= pace.retryAt && (waitedLongEnough || !check.differsFromLastCheck);
}

void NoteWrite(SessionPace& pace, bool written, std::uint64_t duration, std::uint64_t now) {
    static constexpr std::uint64_t kWaitPerWriting = 3;  // at most a quarter of the time is spent writing
    static constexpr std::uint64_t kLongestWait = 4400;  // with the pauses before and after it, at most 5 seconds
    static constexpr std::uint64_t kSecond = 1000;
    static constexpr int kMostDoublings = 6;
    pace.longestWait = std::clamp(duration * kWaitPerWriting, kSessionCheckPause, kLongestWait);
    if (written) {
        pace.checkAt = pace.unsavedSince = pace.retryAt = 0;
        pace.failures = 0;
        return;
    }
    pace.failures = std::min(pace.failures + 1, kMostDoublings);
    pace.retryAt = pace.checkAt = now + (kSecond << pace.failures);
}
