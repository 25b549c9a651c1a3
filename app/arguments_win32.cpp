#include "app/arguments_win32.h"

#include <vector>

#include "app/frame_win32.h"
#include "app/jump_list_win32.h"
#include "app/place_commands_win32.h"
#include "pane/status_bar_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/files.h"
#include "win32/handles.h"

static constexpr ULONG_PTR kReferenceMessage = 0x56657273;  // other programs have other numbers

ProgramArguments ArgumentsOfProcess() {
    return ReadCommandLine(LettersOf(GetCommandLineW()));
}

// ---- The folder -----------------------------------------------------------------------------------------------------

static constexpr wchar_t kCaption[] = L"Versewell97";

static std::wstring ProblemWith(const std::wstring& folder) {
    const std::wstring quoted = L'"' + folder + L'"', path = FullPath(folder);
    if (folder.empty()) return L"There is no folder behind /folder";
    if (IsMissing(path)) return L"The folder " + quoted + L" does not exist";
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool isFile = attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
    return isFile ? quoted + L" is a file and not a folder" : L"The folder " + quoted + L" cannot be opened";
}

// The notes of any other folder are not the ones that were asked for.
bool EnterArgumentFolder(const ProgramArguments& arguments) {
    if (!arguments.folder) return true;
    const std::wstring folder = Wide(*arguments.folder);
    if (!folder.empty() && SetCurrentDirectoryW(folder.c_str())) return true;
    const std::wstring text = ProblemWith(folder) + L", so Versewell has not been started.";
    MessageBoxW(nullptr, text.c_str(), kCaption, MB_OK | MB_ICONEXCLAMATION);
    return false;
}

static const wchar_t* ReasonAgainstStartFolder() {
    if (IsInstalledCopy()) return L"an installed copy keeps all notes in one folder";
    if (!PassedOverFolder().empty()) return L"no files can be created there";
    return L"it has neither note sets nor the files of the text";
}

bool AcceptOtherFolder(const ProgramArguments& arguments) {
    if (!arguments.folder || IsStartFolderUsed()) return true;
    const std::wstring text = L"Versewell cannot keep notes in the folder\n\n" + StartFolder() + L"\n\nbecause " +
                              ReasonAgainstStartFolder() + L". OK starts it with the notes in\n\n" +
                              WithoutLongPrefix(WorkingFilePath("")) + L"\n\nCancel does not start it.";
    return MessageBoxW(nullptr, text.c_str(), kCaption, MB_OKCANCEL | MB_ICONEXCLAMATION) == IDOK;
}

// ---- Answers --------------------------------------------------------------------------------------------------------

static bool WriteTo(HANDLE file, const std::string& text) {
    DWORD written = 0;
    return WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

static bool WriteToRedirected(const std::string& text) {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    if (output == nullptr || output == INVALID_HANDLE_VALUE) return false;
    const DWORD type = GetFileType(output);
    return (type == FILE_TYPE_DISK || type == FILE_TYPE_PIPE) && WriteTo(output, text);
}

// The console's prompt has been written already, because it does not wait for programs with windows.
static bool WriteToConsole(const std::string& text) {
    if (!AttachConsole(ATTACH_PARENT_PROCESS)) return false;
    const HANDLE opened =
        CreateFileW(L"CONOUT$", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return false;
    const OwnedFile console(opened);
    return WriteTo(opened, "\r\n" + text);
}

static std::string WithCarriageReturns(const std::string& text) {
    std::string lines;
    for (const char letter : text) lines += letter == '\n' ? std::string("\r\n") : std::string(1, letter);
    return lines;
}

bool AnswerArguments(const ProgramArguments& arguments) {
    if (arguments.removeList) RemoveJumpList();
    if (!arguments.help && !arguments.version) return arguments.removeList;
    const std::string text = arguments.help ? HelpOnArguments(VERSEWELL_VERSION) : VersionLine(VERSEWELL_VERSION);
    const std::string lines = WithCarriageReturns(text);
    if (!WriteToRedirected(lines) && !WriteToConsole(lines))
        MessageBoxA(nullptr, text.c_str(), "Versewell97", MB_OK | MB_ICONINFORMATION);
    return true;
}

// ---- The reference --------------------------------------------------------------------------------------------------

static std::string theToldText;

static void Tell(const std::string& text) {
    theToldText = text;
    ShowStatus(StatusPart::kSearchSummary, text);
}

// What was told of a former reference is not true of the one that is shown now.
static void RemoveToldText() {
    if (!theToldText.empty() && StatusText(StatusPart::kSearchSummary) == theToldText) Tell("");
}

static ParsedReference ParsedArgument(std::u16string_view reference) {
    const auto text = InCodePage(Wide(WithoutQuotes(reference)));
    return text ? ParseArgument(theScripture.records, *text) : ParsedReference{};
}

// A note that is being edited stays open; only the Passage moves. A dialog may depend on what the panes show.
void GoToArgument(const std::u16string& reference) {
    if (reference.empty() || !theFrame.startUpComplete) return;
    const std::wstring wide = Wide(reference);
    if (!IsWindowEnabled(theFrame.window)) return Tell(NotShownNow(NearestInCodePage(wide)));
    const ParsedReference parsed = ParsedArgument(reference);
    if (!parsed.ok) return Tell(NotUnderstood(NearestInCodePage(wide)));
    RunIfEnabled(theFrame.window, IDM_VIEW_PASSAGE);
    Jump([&] { ScrollToVerse(parsed.verse); });
    RememberVerse(parsed.verse);
    const std::string readAs =
        ReadAs(theScripture.records, NearestInCodePage(Wide(WithoutQuotes(reference))), parsed.verse);
    if (readAs.empty())
        RemoveToldText();
    else
        Tell(readAs);
}

// ---- The second copy ------------------------------------------------------------------------------------------------

static constexpr char kNoAnswer[] =
    "Versewell is running but does not answer, so the verse is not shown. Close its dialogs, or go to the verse there.";

static bool IsTaken(HWND frame, const std::u16string& reference) {
    static constexpr UINT kPatience = 5000;  // milliseconds
    std::string bytes = MessageWithReference(reference);
    COPYDATASTRUCT data{kReferenceMessage, static_cast<DWORD>(bytes.size()), bytes.data()};
    // Its window tells the first copy which process has sent the message.
    const HWND sender = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    DWORD_PTR isTaken = FALSE;
    SendMessageTimeoutA(frame, WM_COPYDATA, reinterpret_cast<WPARAM>(sender), reinterpret_cast<LPARAM>(&data),
                        SMTO_ABORTIFHUNG, kPatience, &isTaken);
    if (sender) DestroyWindow(sender);
    return isTaken != FALSE;
}

void PassOnReference(HWND frame, const std::u16string& reference) {
    if (!reference.empty() && !IsTaken(frame, reference)) Complain(nullptr, kNoAnswer);
}

// The identity of the user that the process runs as; empty if the system does not tell.
static std::vector<unsigned char> UserOf(HANDLE process) {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(process, TOKEN_QUERY, &opened)) return {};
    const OwnedFile token(opened);
    DWORD size = 0;
    GetTokenInformation(opened, TokenUser, nullptr, 0, &size);
    std::vector<unsigned char> bytes(size);
    if (size == 0 || !GetTokenInformation(opened, TokenUser, bytes.data(), size, &size)) return {};
    const auto* const user = reinterpret_cast<const TOKEN_USER*>(bytes.data());
    const auto* const identity = static_cast<const unsigned char*>(user->User.Sid);
    return {identity, identity + GetLengthSid(user->User.Sid)};
}

static bool IsOfThisUser(HWND sender) {
    DWORD processId = 0;
    GetWindowThreadProcessId(sender, &processId);
    const OwnedFile process(processId ? OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId) : nullptr);
    if (!process) return false;
    const std::vector<unsigned char> user = UserOf(process.get());
    return !user.empty() && user == UserOf(GetCurrentProcess());
}

bool OnCopyData(HWND sender, const COPYDATASTRUCT& data) {
    if (data.dwData != kReferenceMessage || data.lpData == nullptr || !IsOfThisUser(sender)) return false;
    const auto reference = ReferenceInMessage({static_cast<const char*>(data.lpData), data.cbData});
    if (reference) GoToArgument(*reference);
    return reference.has_value();
}
