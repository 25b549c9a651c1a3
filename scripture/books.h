// The 66 books of the Authorized Version in canonical order, numbered 1 (Genesis) to 66 (Revelation).
#pragma once

inline constexpr int kBookCount = 66;

// Full name of `book`, "1 Samuel"; empty for a number outside 1..66.
const char* BookName(int book);

// Abbreviation of `book`, "1Sa"; for Job and Jude the full name. Empty for a number outside 1..66.
const char* BookAbbreviation(int book);
