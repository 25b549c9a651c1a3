#include "search/search_win32.h"

WordIndex theWordIndex;
SearchState theSearch;
