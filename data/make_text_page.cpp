// make_text_page PAGE DIFFERENCES FILE: writes to FILE the source text PAGE of the help with its lists filled in;
// DIFFERENCES is edition_differences.tsv.
//
// Exit code 0; 1 on failure, with one line on the error stream; 2 for wrong arguments.
#include <fstream>
#include <iostream>
#include <iterator>

#include "data/text_page.h"

static bool ReadFile(const char* path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    text.assign(std::istreambuf_iterator<char>(file), {});
    return file && !text.empty();
}

static Complaint MakeTextPage(char** paths) {
    std::string page, differences;
    if (!ReadFile(paths[0], page)) return std::string("cannot read ") + paths[0];
    if (!ReadFile(paths[1], differences)) return std::string("cannot read ") + paths[1];
    const Complaint complaint = FillTextPage(differences, page);
    if (!complaint.empty()) return complaint;
    std::ofstream file(paths[2], std::ios::binary);
    file << page;
    file.close();
    return file ? "" : std::string("cannot write ") + paths[2];
}

int main(int count, char** values) {
    if (count != 4) {
        std::cerr << "usage: make_text_page PAGE DIFFERENCES FILE\n";
        return 2;
    }
    const Complaint complaint = MakeTextPage(values + 1);
    if (complaint.empty()) return 0;
    std::cerr << "make_text_page: " << complaint << '\n';
    return 1;
}
