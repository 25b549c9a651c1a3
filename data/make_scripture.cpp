// make_scripture [--modules DIR] FOLDER: makes the program's scripture files in FOLDER from the SWORD module
// engKJV2006eb, which is installed or in DIR.
//
// Exit code 0 when all five files are in place; 1 on failure, with one line on the error stream and FOLDER unchanged; 2
// for wrong arguments.
#include <cstring>
#include <iostream>

#include "data/edition.h"
#include "data/scripture_writer.h"
#include "data/sword_source.h"

namespace {

struct Arguments {
    std::string modules;  // empty: the installed SWORD modules
    std::string folder;
};

}  // namespace

static bool ReadArguments(int count, char** values, Arguments& arguments) {
    int next = 1;
    if (count > 3 && std::strcmp(values[next], "--modules") == 0) {
        arguments.modules = values[next + 1];
        next += 2;
    }
    if (count != next + 1 || values[next][0] == '-') return false;
    arguments.folder = values[next];
    return true;
}

static Complaint MakeScripture(const Arguments& arguments) {
    Verses verses;
    Complaint complaint = ReadSwordModule(arguments.modules, kModuleName, kModuleVersion, verses);
    if (!complaint.empty()) return complaint;
    complaint = ConvertEdition(verses);
    if (complaint.empty()) complaint = CheckFingerprint(verses);
    if (!complaint.empty()) return "the SWORD module " + std::string(kModuleName) + " is damaged: " + complaint;
    return WriteDataFiles(arguments.folder, EncodeScripture(verses, ListWords(verses)));
}

int main(int count, char** values) {
    Arguments arguments;
    if (!ReadArguments(count, values, arguments)) {
        std::cerr << "usage: make_scripture [--modules DIR] FOLDER\n";
        return 2;
    }
    const Complaint complaint = MakeScripture(arguments);
    if (complaint.empty()) return 0;
    std::cerr << "make_scripture: " << complaint << '\n';
    return 1;
}
