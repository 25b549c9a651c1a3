#include "app/command_line.h"

#include <algorithm>
#include <cstring>

#include "scripture/letters.h"

static constexpr std::size_t kLongestReference = kReferenceLimit;

// ---- Words ----------------------------------------------------------------------------------------------------------

namespace {

struct CommandWord {
    std::u16string text;
    bool isQuoted = false;  // begins with a quote, so it is no option
};

}  // namespace

static bool IsBlank(char16_t letter) {
    return letter == u' ' || letter == u'\t';
}

static void SkipBlanks(std::u16string_view& rest) {
    while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
}

// Removes the first word from `rest`; nullopt at the end.
static std::optional<CommandWord> TakeWord(std::u16string_view& rest) {
    SkipBlanks(rest);
    if (rest.empty()) return std::nullopt;
    CommandWord word{{}, rest.front() == u'"'};
    bool inQuotes = false;
    for (; !rest.empty() && (inQuotes || !IsBlank(rest.front())); rest.remove_prefix(1)) {
        if (rest.front() == u'"') {
            inQuotes = !inQuotes;
        } else {
            word.text += rest.front();
        }
    }
    return word;
}

// The dash of a range such as "Ge 1 - 3" stands alone.
static bool LooksLikeOption(std::u16string_view text) {
    return text.size() > 1 && (text.front() == '-' || text.front() == '/');
}

static void AddToReference(ProgramArguments& arguments, const std::u16string& word) {
    if (!arguments.reference.empty()) arguments.reference += u' ';
    arguments.reference += word;
}

// False if there is no such option. Takes the folder from `rest`.
static bool TakeOption(ProgramArguments& arguments, const std::u16string& option, std::u16string_view& rest) {
    if (option == u"/folder") {
        const auto folder = TakeWord(rest);
        arguments.folder = folder ? folder->text : std::u16string();
    } else if (option == u"--help" || option == u"-h" || option == u"/?") {
        arguments.help = true;
    } else if (option == u"--version") {
        arguments.version = true;
    } else if (option == u"--remove-list") {
        arguments.removeList = true;
    } else {
        return false;
    }
    return true;
}

ProgramArguments ReadCommandLine(std::u16string_view line) {
    ProgramArguments arguments;
    std::u16string unknown;
    TakeWord(line);  // the program
    while (const auto word = TakeWord(line)) {
        const bool isOption = !word->isQuoted && LooksLikeOption(word->text);
        if (!isOption) {
            AddToReference(arguments, word->text);
        } else if (!TakeOption(arguments, word->text, line) && unknown.empty()) {
            unknown = word->text;
        }
    }
    if (!unknown.empty()) arguments.reference = unknown;
    if (arguments.reference.size() > kLongestReference) arguments.reference.resize(kLongestReference);
    return arguments;
}

// Straight, of other languages and of code.
std::u16string_view WithoutQuotes(std::u16string_view reference) {
    static constexpr std::u16string_view kAround =
        u" \t\"'`\u00B4\u2018\u2019\u201A\u201B\u201C\u201D\u201E\u201F\u00AB\u00BB\u2039\u203A";
    const std::size_t first = reference.find_first_not_of(kAround);
    if (first == reference.npos) return {};
    return reference.substr(first, reference.find_last_not_of(kAround) - first + 1);
}

ParsedReference ParseArgument(const VerseRecords& records, const std::string& reference) {
    if (reference.empty() || !IsLetterOrDigit(reference.front())) return {};
    return ParseReference(records, reference);
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

std::string HelpOnArguments(std::string_view version) {
    return VersionLine(version) +
           "\n"
           "versewell.exe [REFERENCE] [/folder \"PATH\"]\n"
           "\n"
           "REFERENCE: the verse to go to, for example John 3:16. If Versewell is running with the same notes, it goes "
           "there.\n"
           "/folder \"PATH\": where the notes and settings are, unless the program was installed.\n"
           "--help: shows this text.\n"
           "--version: shows the version.\n"
           "--remove-list: removes the last verses from the taskbar's list of the program, as its uninstaller does.\n";
}

std::string VersionLine(std::string_view version) {
    return "Versewell " + std::string(version) + "\n";
}

static std::string InQuotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::string NotUnderstood(std::string_view argument) {
    return InQuotes(argument) + " is not understood";
}

std::string NotShownNow(std::string_view reference) {
    return InQuotes(reference) + " was not shown, because a dialog is open";
}

static std::string LowerWithoutBlanks(std::string_view text) {
    std::string lower;
    for (const char letter : text)
        if (letter != ' ') lower += LowerCased(letter);
    return lower;
}

// Is `typed` a beginning of the book's name in `name`, and behind it nothing, the chapter, or chapter and verse?
static bool IsBeginningOf(const std::string& name, const std::string& typed) {
    const std::size_t numbers = name.find_last_not_of("0123456789:") + 1;
    const std::string chapterAndVerse = name.substr(numbers),
                      chapter = chapterAndVerse.substr(0, chapterAndVerse.find(':'));
    for (const std::string& behind : {std::string(), chapter, chapterAndVerse}) {
        if (!typed.ends_with(behind)) continue;
        const std::size_t size = typed.size() - behind.size();
        if (size > 0 && size <= numbers && name.starts_with(typed.substr(0, size))) return true;
    }
    return false;
}

std::string ReadAs(const VerseRecords& records, const std::string& reference, int verse) {
    const std::string typed = LowerWithoutBlanks(reference);
    for (const BookForm form : {BookForm::kName, BookForm::kAbbreviation})
        if (IsBeginningOf(LowerWithoutBlanks(ReferenceText(records, verse, form)), typed)) return "";
    return InQuotes(reference) + " was read as " + ReferenceText(records, verse, BookForm::kName);
}

// ---- The message ----------------------------------------------------------------------------------------------------

std::string MessageWithReference(std::u16string_view reference) {
    const std::u16string units = std::u16string(reference) + u'\0';
    return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof units[0]};
}

std::optional<std::u16string> ReferenceInMessage(std::string_view bytes) {
    const std::size_t count = bytes.size() / sizeof(char16_t);
    if (bytes.size() % sizeof(char16_t) != 0 || count == 0 || count > kLongestReference + 1) return std::nullopt;
    std::u16string units(count, u'\0');
    std::memcpy(units.data(), bytes.data(), bytes.size());
    if (units.back() != u'\0') return std::nullopt;
    units.pop_back();
    if (std::any_of(units.begin(), units.end(), [](char16_t unit) { return unit < u' '; })) return std::nullopt;
    return units;
}
