// `vw doctor`: where everything is, and what is wrong with it.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/command_table.h"
#include "cli/diagnosing.h"
#include "cli/note_objects.h"
#include "cli/text_files.h"

// ---- Output ---------------------------------------------------------------------------------------------------------

static std::string Counted(std::uint64_t count, const char* one, const char* more) {
    return std::to_string(count) + ' ' + (count == 1 ? one : more);
}

static std::string Bytes(std::uint64_t size) {
    return Counted(size, "byte", "bytes");
}

static std::string TextLine(const Diagnosis& diagnosis) {
    if (diagnosis.textFolder.empty()) return "Text: none\n";
    const std::vector<FileDigest> built = BuiltFiles();
    std::size_t asBuilt = 0;
    for (std::size_t i = 0; i < built.size(); ++i) asBuilt += diagnosis.textFiles[i] == built[i] ? 1 : 0;
    return "Text: " + diagnosis.textFolder + ", " + std::to_string(asBuilt) + " of " + std::to_string(built.size()) +
           " files as built\n";
}

static void PrintDiagnosis(Vw& vw, const Diagnosis& diagnosis) {
    Print(vw.printer, TextLine(diagnosis));
    Print(vw.printer, "Notes and settings: " + diagnosis.notesFolder + (diagnosis.notes ? "" : ", not there") + "\n");
    Print(vw.printer, "Code page of the notes: " + std::to_string(vw.surroundings.codePage) + "\n");
    Print(vw.printer, std::string("Lock: ") + diagnosis.lock + "\n");
    Print(vw.printer, "Backups: " + std::to_string(diagnosis.backups) + ", " + Bytes(diagnosis.backupSize) + "\n");
    Print(vw.printer, "Earlier notes: " + Bytes(diagnosis.earlierSize) + "\n");
    for (const CountedSet& set : diagnosis.sets)
        Print(vw.printer, "Note set " + Utf8Name(*diagnosis.notes, *set.set) + ": " +
                              Counted(static_cast<std::uint64_t>(set.notes), "note", "notes") + ", " +
                              Bytes(set.set->dataStamp.size) + "\n");
    for (const KeptFile& file : diagnosis.kept)
        Print(vw.printer, "File " + file.name + ": " + Bytes(file.size) + ", " + file.meaning + "\n");
    for (const Trouble& trouble : diagnosis.troubles)
        Print(vw.printer, "Wrong: " + trouble.text + "\n" +
                              (trouble.command.empty() ? "" : "  This would be done by: " + trouble.command + "\n"));
    if (diagnosis.troubles.empty()) Print(vw.printer, "All is well.\n");
}

static void PrintDiagnosisObjects(Vw& vw, const Diagnosis& diagnosis) {
    PrintObject(vw.printer, {{"kind", "doctor"},
                             {"textFolder", diagnosis.textFolder},
                             {"notesFolder", diagnosis.notesFolder},
                             {"codePage", vw.surroundings.codePage},
                             {"lock", diagnosis.lock},
                             {"backups", diagnosis.backups},
                             {"backupBytes", diagnosis.backupSize},
                             {"earlierBytes", diagnosis.earlierSize},
                             {"troubles", diagnosis.troubles.size()}});
    const std::vector<FileDigest> built = BuiltFiles();
    for (std::size_t i = 0; i < diagnosis.textFiles.size(); ++i) PrintFileObject(vw, diagnosis.textFiles[i], built[i]);
    for (const CountedSet& set : diagnosis.sets) PrintSetObject(vw, *diagnosis.notes, *set.set, set.notes);
    for (const KeptFile& file : diagnosis.kept)
        PrintObject(vw.printer,
                    {{"kind", "kept"}, {"file", file.name}, {"bytes", file.size}, {"meaning", file.meaning}});
    for (const Trouble& trouble : diagnosis.troubles)
        PrintObject(vw.printer, {{"kind", "trouble"}, {"text", trouble.text}, {"command", trouble.command}});
}

// ---- The command ----------------------------------------------------------------------------------------------------

static ExitCode TellDiagnosis(Vw& vw) {
    static constexpr ExitCode kSomethingWrong = kNothingFound;  // the same number
    const Diagnosis diagnosis = Diagnose(vw);
    if (vw.options.json)
        PrintDiagnosisObjects(vw, diagnosis);
    else
        PrintDiagnosis(vw, diagnosis);
    if (std::ranges::any_of(diagnosis.troubles, &Trouble::isOfFiles))
        throw Complaint{kFileTrouble, "doctor: files or folders are missing, damaged or cannot be read"};
    return diagnosis.troubles.empty() ? kFound : kSomethingWrong;
}

static RunCommand PrepareDoctor(CLI::App&) {
    return TellDiagnosis;
}

const Command kDoctorCommand = {
    .name = "doctor",
    .help = "tell where text, notes and settings are, and what is wrong with them",
    .prepare = PrepareDoctor,
    .details =
        "Lists the folders, the note sets with their sizes, the backups, and files that were left by programs that "
        "were stopped or that keep a folder in step between machines; and what hinders to save: rights that are "
        "missing, and folders in the place of files. Nothing is changed; a command that would mend something is told. "
        "The exit code is 0 if all is well, 1 if something is wrong, and 3 if files are missing, damaged or cannot be "
        "read and no command helps.",
};
