#include "app/about_text.h"

#include <algorithm>

static constexpr std::size_t kDigestLength = 64;
static constexpr std::string_view kBetween = "  ";

static std::string_view TakeLine(std::string_view& rest) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

// Without the library's streams, which would be a third of the program.
std::vector<FileDigest> ReadDigests(std::string_view list) {
    std::vector<FileDigest> digests;
    while (!list.empty()) {
        const std::string_view line = TakeLine(list);
        const std::size_t nameAt = kDigestLength + kBetween.size();
        if (line.size() <= nameAt || line.find(kBetween) != kDigestLength) continue;
        digests.push_back({std::string(line.substr(nameAt)), std::string(line.substr(0, kDigestLength))});
    }
    return digests;
}

// 31102 as "31,102".
static std::string WithCommas(int number) {
    std::string digits = std::to_string(number);
    for (std::size_t left = digits.size(); left > 3;) digits.insert(left -= 3, 1, ',');
    return digits;
}

static std::string NamesOf(const std::vector<FileDigest>& files) {
    std::string names;
    for (const FileDigest& file : files) names += (names.empty() ? "" : ", ") + file.name;
    return names;
}

AboutText AboutTextOf(int verses, int words, const std::vector<FileDigest>& known,
                      const std::vector<FileDigest>& found) {
    std::vector<FileDigest> others;
    std::ranges::copy_if(found, std::back_inserter(others),
                         [&](const FileDigest& file) { return std::ranges::find(known, file) == known.end(); });
    const bool isKnown = others.empty() && !known.empty() && found.size() == known.size();
    return {
        isKnown ? "Authorized Version, Pure Cambridge Edition" : "Authorized Version, edition unknown",
        WithCommas(verses) + " verses, " + WithCommas(words) + " different words",
        isKnown ? "Its five files are those that this program was built with."
                : "Other scripture files than this program was built with: " + NamesOf(others),
    };
}
