#include "exchange/import_source_win32.h"

#include <new>
#include <string_view>

#include "exchange/note_folder.h"
#include "exchange/note_formats.h"
#include "notes/note_files_win32.h"
#include "scripture/scripture_win32.h"
#include "win32/code_page.h"
#include "win32/files.h"

static ExchangeContext ContextWith(const SearchProgress& progress) {
    return {theScripture, TheNoteFiles().codePage, progress};
}

static std::string Utf8OfPath(const std::wstring& path) {
    return Utf8Of(LettersOf(path));
}

static ExchangedNotes Failed(const std::string& why) {
    ExchangedNotes none;
    none.error = why;
    return none;
}

static std::string_view TextOf(const MappedFile& file) {
    return {reinterpret_cast<const char*>(file.bytes.data()), file.bytes.size()};
}

// Null, or why the file cannot be read.
static const char* Open(const std::wstring& path, MappedFile& file) {
    if (!MapWholeFile(path, FILE_FLAG_SEQUENTIAL_SCAN, file))
        return "The file cannot be read. Another program may have it open, or you may have no right to read it.";
    return file.bytes.size() > kExchangeLimit ? "The file is too large." : nullptr;
}

static ExchangedNotes ReadFormat(const std::wstring& path, const SearchProgress& progress) {
    const NoteFormat* format = FormatNamed(Utf8OfPath(path));
    if (format == nullptr) return Failed("The ending of the file's name is that of none of the formats.");
    MappedFile file;
    const char* problem = Open(path, file);
    return problem != nullptr ? Failed(problem) : format->read(ContextWith(progress), TextOf(file));
}

// ---- A folder -------------------------------------------------------------------------------------------------------

static std::vector<std::string> Patterns() {
    std::vector<std::string> patterns;
    for (std::string_view rest = kNoteFilePatterns; !rest.empty();) {
        const std::size_t end = rest.find(';');
        patterns.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return patterns;
}

// The system also finds longer endings, such as ".txt~".
static bool EndsWith(const std::wstring& name, const std::string& pattern) {
    const std::wstring ending = Wide(std::string_view(pattern).substr(1));
    if (name.size() < ending.size()) return false;
    return lstrcmpiW(name.c_str() + name.size() - ending.size(), ending.c_str()) == 0;
}

static std::vector<std::wstring> NamesOfTexts(const std::wstring& folder) {
    std::vector<std::wstring> names;
    for (const std::string& pattern : Patterns())
        for (const std::wstring& name : FilesIn(folder, pattern.c_str()))
            if (EndsWith(name, pattern)) names.push_back(name);
    return names;
}

// Nearly all of the time goes into opening the files.
static ExchangedNotes ReadFolder(const std::wstring& folder, const SearchProgress& progress) {
    const std::vector<std::wstring> names = NamesOfTexts(folder);
    const ExchangeContext context = ContextWith(progress);
    ExchangeSteps steps{context, names.size()};
    std::vector<NamedText> texts;
    std::size_t size = 0;
    for (const std::wstring& name : names) {
        if (!GoesOn(steps)) return {};
        MappedFile file;
        const char* problem = Open(PathIn(folder, name), file);
        if (problem != nullptr) return Failed(Utf8OfPath(name) + ": " + problem);
        size += file.bytes.size();
        if (size > kExchangeLimit) return Failed("The files of this folder are too large.");
        texts.push_back({Utf8OfPath(name), std::string(TextOf(file))});
    }
    if (texts.empty()) return Failed("This folder has no text files, whose names end in .txt or .md.");
    return ReadNoteFolder(ContextWith({}), texts);
}

// ---- Memory ---------------------------------------------------------------------------------------------------------

using Reading = ExchangedNotes (*)(const std::wstring& path, const SearchProgress& progress);

// What is chosen by mistake may be of any size.
static ExchangedNotes AsFarAsMemoryGoes(const std::wstring& path, const SearchProgress& progress, Reading read) {
    try {
        return read(path, progress);
    } catch (const std::bad_alloc&) {
        return Failed("There is not enough memory to read this.");
    }
}

ExchangedNotes ReadNoteFile(const std::wstring& path, const SearchProgress& progress) {
    return AsFarAsMemoryGoes(path, progress, ReadFormat);
}

ExchangedNotes ReadNoteFilesIn(const std::wstring& folder, const SearchProgress& progress) {
    return AsFarAsMemoryGoes(folder, progress, ReadFolder);
}
