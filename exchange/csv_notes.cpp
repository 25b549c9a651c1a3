#include "exchange/csv_notes.h"

#include <algorithm>
#include <span>

#include "exchange/csv_table.h"
#include "exchange/file_text.h"
#include "exchange/headed_notes.h"
#include "scripture/books.h"
#include "scripture/letters.h"

static constexpr char kColumns[] = "Set,Book,Chapter,Verse,Reference,Note,Mark\r\n";

// Is it one, but for apostrophes?
static bool IsFormula(std::string_view cell) {
    const std::size_t sign = cell.find_first_not_of('\'');
    return sign != std::string_view::npos && std::string_view("=+-@\t").find(cell[sign]) != std::string_view::npos;
}

// ---- Writing --------------------------------------------------------------------------------------------------------

static void AppendVerse(const VerseRecords& records, int verse, std::string& file) {
    const VerseRecord record = RecordOf(records, verse);
    file.append(BookName(record.book)).append(",");
    file.append(std::to_string(record.chapter)).append(",").append(std::to_string(record.verse)).append(",");
    file.append(ReferenceText(records, verse, BookForm::kName)).append(",");
}

static std::string Guarded(const std::string& cell) {
    return IsFormula(cell) ? '\'' + cell : cell;
}

std::string WriteCsvNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions&) {
    std::string file(kUtf8Mark);
    file += kColumns;
    const std::string setName = PortableName(context.page, notes.setName);
    ExchangeSteps steps{context, notes.notes.size()};
    for (const ExchangedNote& note : notes.notes) {
        if (!GoesOn(steps)) return {};
        const PortableText text = PortableTextOf(context.page, note.note);
        const bool isGuarded = IsFormula(setName) || IsFormula(text.text);
        AppendCell(Guarded(setName), file);
        file += ',';
        AppendVerse(context.scripture.records, note.verse, file);
        AppendQuotedCell(Guarded(text.text), file);
        file.append(",").append(MarkText({note.digest, text.isEscaped, isGuarded})).append("\r\n");
    }
    return file;
}

// ---- Reading --------------------------------------------------------------------------------------------------------

namespace {

static constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

struct Columns {
    std::size_t set, book, chapter, verse, reference, note, mark;
    std::size_t count;
};

}  // namespace

static std::size_t ColumnCalled(const CsvRow& row, std::span<const std::string_view> names) {
    for (std::size_t column = 0; column < row.cells.size(); ++column)
        for (const std::string_view name : names)
            if (EqualIgnoringCase(Trimmed(row.cells[column]), name)) return column;
    return kNoColumn;
}

static std::size_t ColumnCalled(const CsvRow& row, std::string_view name) {
    return ColumnCalled(row, {&name, 1});
}

static Columns ColumnsOf(const CsvRow& row) {
    static constexpr std::string_view kReference[] = {"Reference", "Ref", "Passage"}, kNote[] = {"Note", "Notes"};
    return {ColumnCalled(row, "Set"),      ColumnCalled(row, "Book"),
            ColumnCalled(row, "Chapter"),  ColumnCalled(row, "Verse"),
            ColumnCalled(row, kReference), ColumnCalled(row, kNote),
            ColumnCalled(row, "Mark"),     row.cells.size()};
}

static bool HasVerse(const Columns& columns) {
    return columns.reference != kNoColumn || (columns.book != kNoColumn && columns.chapter != kNoColumn);
}

static std::string_view CellOf(const CsvRow& row, std::size_t column) {
    return column < row.cells.size() ? std::string_view(row.cells[column]) : std::string_view();
}

// Of the set or the note.
static std::string_view TextIn(const CsvRow& row, const Columns& columns, std::size_t column) {
    std::string_view cell = CellOf(row, column);
    if (cell.starts_with('\'') && IsFormula(cell) && MarkOf(CellOf(row, columns.mark)).isGuarded) cell.remove_prefix(1);
    return cell;
}

static VerseName VerseOfRow(const VerseRecords& records, const CsvRow& row, const Columns& columns) {
    static constexpr char kTwoVerses[] = "The columns name two different verses.";
    const std::string_view reference = Trimmed(CellOf(row, columns.reference));
    const std::string_view book = Trimmed(CellOf(row, columns.book));
    const VerseName byReference = VerseNamed(records, reference);
    if (book.empty()) return byReference;
    const VerseName byColumns =
        VerseNamed(records, book, Trimmed(CellOf(row, columns.chapter)), Trimmed(CellOf(row, columns.verse)));
    if (reference.empty()) return byColumns;
    if (byReference.verse != byColumns.verse) return {kNoVerse, kTwoVerses};
    return byReference;
}

// What stands in the row for a verse.
static std::string WhereIn(const CsvRow& row, const Columns& columns) {
    const std::string_view reference = Trimmed(CellOf(row, columns.reference));
    if (!reference.empty()) return std::string(reference);
    std::string where(Trimmed(CellOf(row, columns.book)));
    if (where.empty()) return where;
    where.append(" ").append(Trimmed(CellOf(row, columns.chapter)));
    return where.append(":").append(Trimmed(CellOf(row, columns.verse)));
}

static const char* ProblemOf(const CsvRow& row, const Columns& columns, std::string_view setName) {
    const std::string_view set = TextIn(row, columns, columns.set);
    const auto isFilled = [](const std::string& cell) { return !cell.empty(); };
    if (row.isUnclosed) return "The quotation mark that opens here is not closed.";
    if (row.cells.size() > columns.count &&
        std::any_of(row.cells.begin() + static_cast<std::ptrdiff_t>(columns.count), row.cells.end(), isFilled))
        return "There are more cells than headings; a text with separators needs quotation marks.";
    if (!set.empty() && set != setName) return "This is a note of another set.";
    return nullptr;
}

static std::string SetNameIn(std::span<const CsvRow> rows, const Columns& columns) {
    for (const CsvRow& row : rows)
        if (!CellOf(row, columns.set).empty()) return std::string(TextIn(row, columns, columns.set));
    return {};
}

// All of a row that cannot be a note.
static std::string WholeRow(const CsvRow& row) {
    std::string text;
    for (const std::string& cell : row.cells) text.append(text.empty() ? "" : ", ").append(cell);
    return text;
}

static void PlaceRows(const ExchangeContext& context, std::span<const CsvRow> rows, const Columns& columns,
                      ExchangedNotes& notes) {
    const std::string setName = SetNameIn(rows, columns);
    notes.setName = NameOfSet(context.page, setName);
    ExchangeSteps steps{context, rows.size()};
    for (const CsvRow& row : rows) {
        if (!GoesOn(steps)) return;
        const char* problem = ProblemOf(row, columns, setName);
        if (problem != nullptr)
            Place(context.page, {row.line, WhereIn(row, columns), {kNoVerse, problem}, {}, WholeRow(row)}, notes);
        else
            Place(context.page,
                  {row.line, WhereIn(row, columns), VerseOfRow(context.scripture.records, row, columns),
                   MarkOf(CellOf(row, columns.mark)), std::string(TextIn(row, columns, columns.note))},
                  notes);
    }
}

ExchangedNotes ReadCsvNotes(const ExchangeContext& context, std::string_view bytes) {
    const std::vector<CsvRow> rows = CsvRowsOf(TextOfFile(context.page, bytes));
    ExchangedNotes notes;
    if (rows.empty()) {
        notes.error = "The file is empty.";
        return notes;
    }
    const Columns columns = ColumnsOf(rows.front());
    const std::string line = "Line " + std::to_string(rows.front().line) + ": ";
    if (columns.note == kNoColumn) {
        notes.error = line + "no column has the heading \"Note\".";
    } else if (!HasVerse(columns)) {
        notes.error = line + "no column has the heading \"Reference\", nor are there \"Book\" and \"Chapter\".";
    } else {
        PlaceRows(context, std::span(rows).subspan(1), columns, notes);
        FinishPlacing(context.scripture.records, notes);
    }
    return notes;
}
