#include "help/made_help.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

namespace fs = std::filesystem;

std::string FileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string OutputOf(const std::string& command) {
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) throw std::runtime_error("cannot run " + command);
    std::string output;
    char piece[4096];
    for (size_t read; (read = std::fread(piece, 1, sizeof piece, pipe)) > 0;) output.append(piece, read);
    if (pclose(pipe) != 0) throw std::runtime_error("failed: " + command + "\n" + output);
    return output;
}

static std::string WithoutTags(const std::string& html) {
    static const struct {
        const char* code;
        const char* text;
    } kCodes[] = {{"&lt;", "<"}, {"&gt;", ">"}, {"&nbsp;", " "}, {"&quot;", "\""}, {"&amp;", "&"}};
    std::string text = std::regex_replace(html, std::regex("<[^>]*>"), "");
    for (const auto& [code, plain] : kCodes) text = std::regex_replace(text, std::regex(code), plain);
    return text;
}

static std::vector<std::string> AllOf(const std::string& html, const char* form) {
    const std::regex wanted(form);
    std::vector<std::string> found;
    for (std::sregex_iterator hit(html.begin(), html.end(), wanted), end; hit != end; ++hit)
        found.push_back(WithoutTags((*hit)[1]));
    return found;
}

static HelpPageText ReadPage(const fs::path& file) {
    HelpPageText page;
    page.html = FileBytes(file);
    const size_t body = page.html.find("<body");
    if (body == std::string::npos) throw std::runtime_error("no page: " + file.string());
    const std::string shown = page.html.substr(body);
    const std::vector<std::string> titles = AllOf(shown, "<h1>([^\\n]*)</h1>");
    page.title = std::regex_replace(titles.empty() ? "" : titles.front(), std::regex("^(Chapter )?[0-9.]+:? "), "");
    page.text = WithoutTags(shown);
    page.links = AllOf(shown, "href=\"([^\"]*)\"");
    page.linkTexts = AllOf(shown, "<a href=\"[^\"]*\">([^<]*)</a>");
    for (const std::string& name : AllOf(shown, "<a name=\"([^\"]*)\"")) page.anchors.insert(name);
    page.emphasized = AllOf(shown, "<em>([^<]*)</em>");
    page.examples = AllOf(shown, "<code>([^<]*)</code>");
    return page;
}

static std::map<std::string, HelpPageText> ReadPages() {
    std::map<std::string, HelpPageText> pages;
    for (const fs::directory_entry& entry : fs::directory_iterator(VERSEWELL_HELP_DIR "/help"))
        if (entry.path().extension() == ".html") pages[entry.path().stem().string()] = ReadPage(entry.path());
    return pages;
}

const std::map<std::string, HelpPageText>& HelpPages() {
    static const std::map<std::string, HelpPageText> pages = ReadPages();
    return pages;
}
