// What the program's paint of the Passage is compared with: the same words drawn in the two plainest ways.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "typeset/faces_win32.h"

using FaceFonts = std::array<OwnedFont, kFaceCount>;

FaceFonts FontsOf(const FontChoice& choice);

// One piece of a word as the walk places it.
struct PlacedWord {
    Face face = Face::kRegular;
    int x = 0, y = 0;
    std::string text;
};

// Measures and draws word by word, and breaks the lines at `width`, straight on `target`.
void DrawWordByWord(HDC target, const FaceFonts& fonts, const std::vector<PlacedWord>& words, int width,
                    int lineHeight);

// Draws the runs face by face into the bitmap of `canvas`, cleared before, and copies it once.
void DrawFaceByFace(HDC target, HDC canvas, const FaceFonts& fonts, const TextRuns& runs, const RECT& client);
