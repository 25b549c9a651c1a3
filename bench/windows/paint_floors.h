// Floors for painting the Passage: two simple ways to draw the same words.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "typeset/faces_win32.h"

using FaceFonts = std::array<OwnedFont, kFaceCount>;

FaceFonts FontsOf(const FontChoice& choice);

// One piece of a word as placed by the layout.
struct PlacedWord {
    Face face = Face::kRegular;
    int x = 0, y = 0;
    std::string text;
};

// Measures and draws word by word directly on `target`, with lines wrapped at `width`.
void DrawWordByWord(HDC target, const FaceFonts& fonts, const std::vector<PlacedWord>& words, int width,
                    int lineHeight);

// Clears the bitmap of `canvas`, draws the runs into it face by face and copies it to `target`.
void DrawFaceByFace(HDC target, HDC canvas, const FaceFonts& fonts, const TextRuns& runs, const RECT& client);
