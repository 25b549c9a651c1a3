// Pictures with dark lines, made readable on a dark button face, such as the black one of many contrast themes.
#pragma once

#include <cstdint>
#include <span>

// `pixels` are 0xaarrggbb, as in bitmaps, with colours that are not multiplied by alpha; `face` is 0x00bbggrr. On a
// dark face, dark colours become light and light ones dark, each keeping its hue, so that lines on white paper become
// lines on black paper. Nothing changes on another face.
void FitToFace(std::span<std::uint32_t> pixels, std::uint32_t face);
