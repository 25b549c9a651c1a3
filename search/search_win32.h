// The program's word index and the state of its searches.
#pragma once

#include "search/search_state.h"
#include "search/word_index.h"

extern WordIndex theWordIndex;
extern SearchState theSearch;
