// The table of the differences is built in, so that it is that of the text that the build makes.
#include "cli/text_differences.h"

#include <algorithm>
#include <string_view>

// data/edition_differences.tsv: a line of the names of the columns, then one for each place.
static constexpr char kEditionDifferences[] =
#include "cli/edition_differences.inc"
    ;

// Cuts off what stands before the mark, and the mark.
static std::string_view TakeBefore(std::string_view& rest, char mark) {
    const std::size_t end = std::min(rest.find(mark), rest.size());
    const std::string_view taken = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return taken;
}

static TextDifference DifferenceOf(std::string_view row) {
    TextDifference place;
    for (std::string* column :
         {&place.reference, &place.ours, &place.theirs, &place.kind, &place.alsoOurs, &place.alsoTheirs})
        *column = TakeBefore(row, '\t');
    return place;
}

std::vector<TextDifference> TextDifferences() {
    std::string_view table = kEditionDifferences;
    TakeBefore(table, '\n');
    std::vector<TextDifference> places;
    while (!table.empty()) places.push_back(DifferenceOf(TakeBefore(table, '\n')));
    return places;
}
