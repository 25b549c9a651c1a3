// Reads texts that become notes with libsword: installed commentaries and daily devotionals.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/imported_notes.h"
#include "data/verses.h"

struct NotesModule {
    std::string description;
    bool isDevotional = false;
    std::vector<CommentaryEntry> commentary;  // in the order of the Bible
    std::vector<DayEntry> days;
    int otherEntries = 0;  // of a devotional: entries that are not for a day of the year
};

// Reads module `name`. `folder` contains `mods.d` and `modules`; empty for the installed SWORD modules. The complaint
// says that the module is missing, of another kind, of another versification, locked, or damaged.
Complaint ReadNotesModule(const std::string& folder, const std::string& name, NotesModule& module);

// Verse records of the program's versification, made from libsword's table.
std::vector<unsigned char> VerseRecordsOfLibrary();

struct ReferenceDevice;
struct ReferenceDeviceDeleter {
    void operator()(ReferenceDevice* device) const;
};
using UniqueReferenceDevice = std::unique_ptr<ReferenceDevice, ReferenceDeviceDeleter>;

// libsword's parser of references. `records` must outlive the device.
UniqueReferenceDevice MakeReferenceDevice(const VerseRecords& records);
ReferenceReader ReaderOf(ReferenceDevice& device);
