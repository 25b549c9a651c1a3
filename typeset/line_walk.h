// Position of the next word of a text: words run from left to right and wrap to a new line when there is no room.
// Shared by the Passage, the Verse List and the printer.
#pragma once

struct LineWalk {
    int x = 0, y = 0;    // position of the next word, pixels
    int lineStart = 0;   // left edge of a new line
    int limit = 0;       // the right edge of a word must be less, unless the word is wider than a line
    int lineHeight = 1;  // pixels
};

inline void BreakLine(LineWalk& line) {
    line.x = line.lineStart;
    line.y += line.lineHeight;
}

// Breaks the line if a word of this width does not fit on it. A word wider than a line gets a line of its own.
inline void WrapBefore(LineWalk& line, int width) {
    if (line.x + width >= line.limit) BreakLine(line);
}
