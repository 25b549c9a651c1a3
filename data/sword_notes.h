// The door to libsword for texts that become notes: commentaries and daily devotionals as they are installed.
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
    int otherEntries = 0;  // of a devotional: on no day of the year
};

// Reads module `name`. `folder` holds `mods.d` and `modules`; empty for wherever SWORD modules are installed. The
// complaint says that the module is missing, of another kind, of another division into verses, locked, or damaged.
Complaint ReadNotesModule(const std::string& folder, const std::string& name, NotesModule& module);

// The records of the division into verses that the program has, from libsword's own table.
std::vector<unsigned char> VerseRecordsOfLibrary();

struct ReferenceDevice;
struct ReferenceDeviceDeleter {
    void operator()(ReferenceDevice* device) const;
};
using UniqueReferenceDevice = std::unique_ptr<ReferenceDevice, ReferenceDeviceDeleter>;

// libsword's reader of references. `records` must stay as long as the device is used.
UniqueReferenceDevice MakeReferenceDevice(const VerseRecords& records);
ReferenceReader ReaderOf(ReferenceDevice& device);
