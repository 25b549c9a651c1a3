// Where the next word of a text goes: from left to right, and to a new line where there is no room. The Passage, the
// Verse List and the printer all place their words by it.
#pragma once

struct LineWalk {
    int x = 0, y = 0;    // of the next word, pixels
    int lineStart = 0;   // x where a new line begins
    int limit = 0;       // the right edge of a word stays left of this, unless the word begins its line
    int lineHeight = 1;  // pixels
};

inline void BreakLine(LineWalk& line) {
    line.x = line.lineStart;
    line.y += line.lineHeight;
}

// Breaks the line where a word of this width has no room on it. A word that is wider than a whole line stands alone.
inline void WrapBefore(LineWalk& line, int width) {
    if (line.x + width >= line.limit) BreakLine(line);
}
