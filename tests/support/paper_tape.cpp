#include "tests/support/paper_tape.h"

#include <gtest/gtest.h>

#include <numeric>

static PaperTape& TapeOf(void* device) {
    return *static_cast<PaperTape*>(device);
}

static int WidthOf(void*, PrintFace face, std::string_view text) {
    const std::size_t letters = face == PrintFace::kUtf8Note ? LettersOfUtf8(text).size() : text.size();
    return 10 * static_cast<int>(letters);
}

static int HeightOf(void* device, PrintFace face) {
    return face >= PrintFace::kNote ? 13 : face == PrintFace::kItalic ? TapeOf(device).italicHeight : 20;
}

static void Draw(void* device, PrintFace face, int x, int y, int width, std::string_view text) {
    EXPECT_EQ(width, WidthOf(device, face, text));
    EXPECT_FALSE(text.empty());
    std::string& tape = TapeOf(device).tape;
    tape += "rbinu"[static_cast<std::size_t>(face)];
    tape += std::to_string(x) + "," + std::to_string(y) + ":";
    tape.append(text) += '|';
}

static bool StartTapePage(void* device) {
    PaperTape& tape = TapeOf(device);
    if (++tape.pages == tape.failingPage) return false;
    tape.tape += '(';
    return true;
}

static bool EndTapePage(void* device) {
    TapeOf(device).tape += ')';
    return true;
}

static bool GoesOn(void* device) {
    return TapeOf(device).patience-- > 0;
}

PrinterPage PageOver(PaperTape& tape) {
    return {&tape, WidthOf, HeightOf, Draw, StartTapePage, EndTapePage, GoesOn};
}

PrintResult Print(const PrintJob& job, PaperTape& tape) {
    const HandMadeFiles files = MakeFiles(job.verses);
    std::vector<std::int32_t> verses(job.verses.size());
    std::iota(verses.begin(), verses.end(), 0);
    const NoteSource source = SourceOf(job.notes);
    PrintOptions options = job.asList
                               ? ListPrinting(job.box, job.reading)
                               : RangePrinting(job.box, job.format, job.reading, job.withNotes ? &source : nullptr);
    options.tabDistance = job.tabDistance;
    return PrintVerses(ScriptureOf(files), verses, options, PageOver(tape));
}

std::string Printed(const PrintJob& job) {
    PaperTape tape;
    EXPECT_EQ(Print(job, tape), PrintResult::kPrinted);
    return tape.tape;
}

PrintJob RangeJob(std::vector<HandMadeVerse> verses, FormatOptions format) {
    PrintJob job;
    job.verses = std::move(verses);
    job.format = format;
    return job;
}

FormatOptions LabelStyles(int first, int later) {
    FormatOptions format;
    format.FirstVerseStyle = static_cast<std::int8_t>(first);
    format.SubsequentVerseStyle = static_cast<std::int8_t>(later);
    return format;
}
