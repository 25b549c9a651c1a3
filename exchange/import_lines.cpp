#include "exchange/import_lines.h"

const char* KindText(ImportKind kind) {
    switch (kind) {
        case ImportKind::kNew: return "new";
        case ImportKind::kChanged: return "changed";
        case ImportKind::kConflict: return "in conflict";
        case ImportKind::kOlder: return "older than the set's";
    }
    return "";
}

const char* ChoiceText(const PlannedNote& note) {
    if (note.choice == ImportChoice::kKeep) return "stays as it is";
    if (note.choice == ImportChoice::kBoth && !note.mine.empty()) return "gets both texts";
    if (note.mine.empty()) return "is added";
    return note.imported.empty() ? "is emptied" : "replaces the note";
}

static void AddPart(std::string& line, std::size_t count, const std::string& what) {
    if (count == 0) return;
    if (!line.empty()) line += ", ";
    line += std::to_string(count) + ' ' + what;
}

std::string PlanSummary(const ImportPlan& plan) {
    std::string line;
    for (const ImportKind kind : {ImportKind::kNew, ImportKind::kChanged, ImportKind::kConflict, ImportKind::kOlder})
        AddPart(line, static_cast<std::size_t>(CountOf(plan, kind)),
                kind == ImportKind::kOlder ? "older" : KindText(kind));
    AddPart(line, static_cast<std::size_t>(plan.sameNotes), "the same");
    AddPart(line, plan.unplaced.size(), "not placed");
    return line.empty() ? "no notes" : line;
}

std::string UnplacedLine(const UnplacedText& text) {
    std::string line;
    if (text.line != 0) line = "line " + std::to_string(text.line) + ": ";
    if (!text.where.empty()) line += text.where + ". ";
    return line + text.reason;
}

static std::string Counted(int notes) {
    return std::to_string(notes) + (notes == 1 ? " note" : " notes");
}

std::string ResultText(const ImportPlan& plan, const ImportResult& result) {
    switch (result.end) {
        case ImportEnd::kImported: break;
        case ImportEnd::kChangedOnDisk: return "No notes were imported: " + plan.setName + " has changed meanwhile.";
        case ImportEnd::kReadOnly: return "No notes were imported: the files of " + plan.setName + " are damaged.";
        case ImportEnd::kCannotWrite: return "No notes were imported: " + plan.setName + " cannot be written.";
    }
    std::string text = Counted(result.written) + " imported into " + plan.setName + '.';
    if (result.setAside != 0)
        text += ' ' + Counted(result.setAside) + " did not fit and can be found under Earlier Notes.";
    return text;
}

std::string ExportedText(const ExchangedNotes& notes) {
    return Counted(static_cast<int>(notes.notes.size())) + " exported.";
}
