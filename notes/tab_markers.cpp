#include "notes/tab_markers.h"

bool NeedsNewMarks(const MarkedBefore& before, const MarkedPlace& place) {
    return !before || before->listPosition != place.listPosition || before->passageVerse != place.passageVerse;
}

std::string MarkedLabel(const NoteFiles& files, const NoteSet& set, const MarkedPlace& place) {
    std::string label;
    if (place.listPosition >= 0 && NoteExists(files, set, place.listVerse)) label += "\xAB ";
    if (NoteExists(files, set, place.passageVerse)) label += "\xBB ";
    return label + NoteSetName(set);
}
