#include "cli/text_folder.h"

#include <utility>

std::string PathIn(const std::string& folder, const std::string& name) {
    const bool needsSlash = !folder.empty() && folder.back() != '/' && folder.back() != '\\';
    return folder + (needsSlash ? "/" : "") + name;
}

std::optional<std::string> VariableOf(const Vw& vw, const char* name) {
    auto value = vw.surroundings.variable(vw.surroundings.device, name);
    return value && !value->empty() ? value : std::nullopt;
}

namespace {

struct MappedFolder {
    const Surroundings& surroundings;
    std::string folder;
};

}  // namespace

static bool MapIn(void* device, const char* name, AccessPattern, std::span<const unsigned char>& bytes) {
    const auto& [surroundings, folder] = *static_cast<const MappedFolder*>(device);
    return surroundings.map(surroundings.device, PathIn(folder, name), bytes);
}

static bool HasText(const Surroundings& surroundings, const std::string& folder) {
    std::span<const unsigned char> bytes;
    return surroundings.map(surroundings.device, PathIn(folder, kVerseIndexFile), bytes);
}

std::string TextFolder(const Vw& vw) {
    if (!vw.options.textFolder.empty()) return vw.options.textFolder;
    if (const auto named = VariableOf(vw, "VERSEWELL_DATA")) return *named;
    std::string looked;
    for (const std::string& folder : vw.surroundings.textFolders) {
        if (HasText(vw.surroundings, folder)) return folder;
        looked += (looked.empty() ? "" : ", ") + folder;
    }
    throw Complaint{kFileTrouble, "--data: no scripture files (_av*.dat) in " + looked};
}

// What has named the folder.
static std::string ArgumentOf(const Vw& vw) {
    return vw.options.textFolder.empty() && VariableOf(vw, "VERSEWELL_DATA") ? "VERSEWELL_DATA" : "--data";
}

Scripture TextOf(const Vw& vw) {
    MappedFolder folder{vw.surroundings, TextFolder(vw)};
    Scripture scripture;
    if (!LoadScripture({&folder, MapIn}, scripture))
        throw Complaint{kFileTrouble, ArgumentOf(vw) + ": cannot read " + PathIn(folder.folder, kVerseIndexFile) +
                                          " and " + kVerseTextFile + " beside it"};
    return scripture;
}

WordIndex IndexOf(const Vw& vw) {
    MappedFolder folder{vw.surroundings, TextFolder(vw)};
    WordIndex index;
    if (LoadWordIndex({&folder, MapIn}, index) != IndexLoad::kLoaded)
        throw Complaint{kFileTrouble, ArgumentOf(vw) + ": cannot read " + PathIn(folder.folder, kWordsFile) + ", " +
                                          kWordPointersFile + " and " + kVerseListsFile + " beside it"};
    return index;
}

std::string WorkingFolder(const Vw& vw) {
    if (!vw.options.workingFolder.empty()) return vw.options.workingFolder;
    return VariableOf(vw, "VERSEWELL_FOLDER").value_or(vw.surroundings.workingFolder);
}

const char* FolderArgument(const Vw& vw) {
    return vw.options.workingFolder.empty() && VariableOf(vw, "VERSEWELL_FOLDER") ? "VERSEWELL_FOLDER" : "--folder";
}
