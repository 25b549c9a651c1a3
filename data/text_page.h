// The lists of the page "Which text this is", in the mark-up of the help (halibut).
#pragma once

#include <string>
#include <string_view>

#include "data/verses.h"

// Replaces each line "LIST name" of `page` by the list of that name: "corrected" and "conformed" from the tables of
// this folder, "differences" from `differences`, the bytes of edition_differences.tsv. Complains about an unknown list,
// a list that is missing, and a row of the differences that does not have its six columns; `page` is then unchanged.
Complaint FillTextPage(std::string_view differences, std::string& page);
