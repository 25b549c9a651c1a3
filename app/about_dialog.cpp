#include "app/about_dialog.h"

#include "app/about_text.h"
#include "app/frame_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "search/search_dialog.h"
#include "win32/dialogs.h"
#include "win32/digest.h"
#include "win32/files.h"

// The list that the build has put into the program.
static std::vector<FileDigest> KnownFiles() {
    const HRSRC found = FindResourceA(nullptr, "Scripture_Digests", reinterpret_cast<LPCSTR>(RT_RCDATA));
    const HGLOBAL loaded = found != nullptr ? LoadResource(nullptr, found) : nullptr;
    if (loaded == nullptr) return {};
    return ReadDigests({static_cast<const char*>(LockResource(loaded)), SizeofResource(nullptr, found)});
}

static std::vector<FileDigest> PresentFiles(const std::vector<FileDigest>& known) {
    std::vector<FileDigest> present;
    for (const FileDigest& file : known) {
        MappedFile mapped;
        const bool isRead = MapWholeFile(ProgramFilePath(file.name), FILE_FLAG_SEQUENTIAL_SCAN, mapped);
        present.push_back({file.name, isRead ? Sha256Of(mapped.bytes) : ""});
    }
    return present;
}

static void Fill(HWND dialog) {
    const int verses = static_cast<int>(theScripture.records.bytes.size() / kVerseRecordSize);
    const std::vector<FileDigest> known = KnownFiles();
    const AboutText text = AboutTextOf(verses, WordCount(theWordIndex), known, PresentFiles(known));
    SetDlgItemTextA(dialog, IDC_EDITION, text.edition.c_str());
    SetDlgItemTextA(dialog, IDC_TEXT_COUNTS, text.counts.c_str());
    SetDlgItemTextA(dialog, IDC_TEXT_FILES, text.files.c_str());
}

static void OnCommand(HWND dialog, int control, UINT) {
    if (control == IDOK) EndDialog(dialog, IDOK);
}

void ShowAbout(int) {
    RunDialog(theFrame.window, {"ABOUT", Fill, OnCommand});
}
