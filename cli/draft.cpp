#include "cli/draft.h"

#include "cli/utf8.h"
#include "notes/note_letters.h"

// Editors of Windows tell by the mark that it is UTF-8, and older ones know no other end of a line.
static std::string AsFile(const Vw& vw, const std::string& text) {
    if (!vw.surroundings.draftsAreOfWindows) return text;
    std::string bytes(kUtf8Mark);
    for (const char c : text) bytes += c == '\n' ? "\r\n" : std::string(1, c);
    return bytes;
}

static bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty())
        if (!TakeLetter(bytes)) return false;
    return true;
}

Draft MakeDraft(const Vw& vw, const std::string& text) {
    Draft draft{"", AsFile(vw, text)};
    draft.path = vw.surroundings.makeDraft(vw.surroundings.device, draft.original);
    if (draft.path.empty()) throw Complaint{kFileTrouble, "EDITOR: cannot make a temporary file for it"};
    return draft;
}

void WriteDraft(const Vw& vw, const Draft& draft, const std::string& text) {
    if (!vw.surroundings.writeFile(vw.surroundings.device, draft.path, AsFile(vw, text)))
        throw Complaint{kFileTrouble, "EDITOR: cannot write its temporary file"};
}

std::string EditDraft(const Vw& vw, const Draft& draft) {
    const Surroundings& surroundings = vw.surroundings;
    if (!surroundings.edit(surroundings.device, draft.path))
        throw Complaint{kFileTrouble, "EDITOR: no editor, or it failed; the note is as it was"};
    const auto bytes = surroundings.readFile(surroundings.device, draft.path);
    if (!bytes) throw Complaint{kFileTrouble, "EDITOR: its file is gone; the note is as it was"};
    if (!IsUtf8(*bytes) || bytes->find('\0') != bytes->npos)
        throw Complaint{kFileTrouble, "EDITOR: its file is no text in UTF-8; the note is as it was"};
    std::string text = WithPlainLineEnds(bytes->starts_with(kUtf8Mark) ? bytes->substr(kUtf8Mark.size()) : *bytes);
    if (text.ends_with('\n')) text.pop_back();
    return text;
}

bool HasChanged(const Vw& vw, const Draft& draft) {
    const auto bytes = vw.surroundings.readFile(vw.surroundings.device, draft.path);
    return bytes && *bytes != draft.original;
}

void RemoveDraft(const Vw& vw, const Draft& draft) {
    vw.surroundings.removeDraft(vw.surroundings.device, draft.path);
}
