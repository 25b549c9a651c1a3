#include "exchange/export_notes_dialog.h"

#include <algorithm>

#include "exchange/import_lines.h"
#include "exchange/note_formats.h"
#include "notes/note_files_win32.h"
#include "notes/search_progress_dialog.h"
#include "output/saved_file_win32.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/file_dialogs.h"
#include "win32/files.h"
#include "win32/help_viewer.h"
#include "win32/replacing_file.h"

namespace {

// Of the open dialog.
struct ExportDialog {
    ExportChoices& choices;
    std::optional<std::string> report{};
    SearchProgressBox progress{.canStop = true, .title = "Exporting..."};
};

}  // namespace

static ExportDialog& Shown(HWND dialog) {
    return *const_cast<ExportDialog*>(static_cast<const ExportDialog*>(DataOf(dialog)));
}

// ---- Writing --------------------------------------------------------------------------------------------------------

static bool WriteAll(const ReplacingFile& replacing, std::string_view bytes) {
    DWORD written = 0;
    return WriteFile(replacing.file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

// An error message, or null if the file has been written.
static const char* WriteWhole(const std::wstring& path, std::string_view bytes) {
    if (IsOwnFile(path)) return "This is a file of Versewell's own. Choose another name or another folder.";
    ReplacingFile replacing = BeginReplacing(path);
    if (!replacing.file)
        return "The file cannot be created. It may be write-protected or open in another program, or you may have no "
               "right to write in this folder.";
    const bool isWhole = WriteAll(replacing, bytes);
    if (EndReplacing(replacing, isWhole)) return nullptr;
    return "The file cannot be written. The disk may be full. A file that was there before is as it was.";
}

// ---- The dialog -----------------------------------------------------------------------------------------------------

static const NoteFormat& FormatNumber(LRESULT number) {
    const std::span<const NoteFormat> formats = NoteFormats();
    const bool isOne = number >= 0 && number < static_cast<LRESULT>(formats.size());
    return formats[isOne ? static_cast<std::size_t>(number) : 0];
}

static LRESULT Chosen(HWND dialog, int list) {
    return SendDlgItemMessageA(dialog, list, CB_GETCURSEL, 0, 0);
}

static void AddLine(HWND dialog, int list, const std::string& line) {
    SendDlgItemMessageA(dialog, list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
}

static void ShowVerseTexts(HWND dialog) {
    const bool canHave = FormatNumber(Chosen(dialog, IDC_EXPORT_FORMAT)).canHaveVerseTexts;
    EnableWindow(GetDlgItem(dialog, IDC_EXPORT_VERSES), canHave);
}

static std::string LabelOf(const NoteFormat& format) {
    return std::string(format.name) + " (*" + format.ending + ")";
}

static void Fill(HWND dialog) {
    const ExportChoices& choices = Shown(dialog).choices;
    for (const NoteSet& set : theNoteSets.sets) AddLine(dialog, IDC_EXPORTED_SET, NoteSetName(set));
    for (const NoteFormat& format : NoteFormats()) AddLine(dialog, IDC_EXPORT_FORMAT, LabelOf(format));
    const auto format = &FormatNumber(choices.Format) - NoteFormats().data();
    SendDlgItemMessageA(dialog, IDC_EXPORTED_SET, CB_SETCURSEL, static_cast<WPARAM>(theNoteSets.currentSet), 0);
    SendDlgItemMessageA(dialog, IDC_EXPORT_FORMAT, CB_SETCURSEL, static_cast<WPARAM>(format), 0);
    SetChecked(dialog, IDC_EXPORT_VERSES, choices.VerseTexts != 0);
    ShowVerseTexts(dialog);
}

static void Read(HWND dialog) {
    ExportChoices& choices = Shown(dialog).choices;
    choices.Format = static_cast<int>(Chosen(dialog, IDC_EXPORT_FORMAT));
    choices.VerseTexts = IsChecked(dialog, IDC_EXPORT_VERSES);
}

static std::wstring AskPath(HWND dialog, const NoteFormat& format, const std::string& setName) {
    const std::wstring ending = Wide(format.ending);
    return AskFileToSave(dialog, {Wide(LabelOf(format)), Wide(format.patterns)}, setName + format.ending,
                         ending.substr(1));
}

// The contents of the file; nullopt if the user has cancelled it.
static std::optional<std::string> Written(HWND dialog, const NoteFormat& format, const ExchangedNotes& notes) {
    ExportDialog& shown = Shown(dialog);
    BeginSearchProgress(shown.progress, dialog, {0, kExchangeSteps});
    const ExchangeContext context{theScripture, TheNoteFiles().codePage, ProgressOf(shown.progress)};
    const ExportOptions options{.hasVerseTexts = shown.choices.VerseTexts != 0 && format.canHaveVerseTexts};
    std::string file = format.write(context, notes, options);
    HideSearchProgress(shown.progress);
    if (shown.progress.isStopped) return std::nullopt;
    return file;
}

// Has the file been written? Complains if it cannot be; the user may also have cancelled it.
static bool Export(HWND dialog, const NoteFormat& format, const ExchangedNotes& notes, const std::wstring& path) {
    const HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    const std::optional<std::string> file = Written(dialog, format, notes);
    const char* problem = file ? WriteWhole(path, *file) : nullptr;
    SetCursor(before);
    if (problem != nullptr) Complain(dialog, problem, kSaveErrorCaption);
    return file && problem == nullptr;
}

static void OnOk(HWND dialog) {
    Read(dialog);
    ExportDialog& shown = Shown(dialog);
    const NoteFormat& format = FormatNumber(shown.choices.Format);
    const NoteSet& set = theNoteSets.sets[static_cast<std::size_t>(Chosen(dialog, IDC_EXPORTED_SET))];
    const std::optional<ExchangedNotes> notes = NotesToExport(TheNoteFiles(), set);
    if (!notes) return Complain(dialog, "The notes of this set cannot be read.");
    if (notes->notes.empty()) return Complain(dialog, "There are no notes in this set.");
    const std::wstring path = AskPath(dialog, format, NoteSetName(set));
    if (path.empty()) return;
    if (!Export(dialog, format, *notes, path)) return;
    shown.report = ExportedText(*notes);
    EndDialog(dialog, IDOK);
}

static void OnCommand(HWND dialog, int control, UINT notification) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_EXPORT_FORMAT:
            if (notification == CBN_SELCHANGE) ShowVerseTexts(dialog);
            break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicExportNotes); break;
    }
}

std::optional<std::string> AskExport(HWND frame, ExportChoices& choices) {
    if (theNoteSets.sets.empty()) return std::nullopt;
    ExportDialog shown{choices};
    RunDialog(frame, {.name = "EXPORTNOTES", .fill = Fill, .command = OnCommand, .data = &shown});
    return shown.report;
}
