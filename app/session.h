// The session file: what is not yet saved, so that nothing is lost if the program or the system ends without warning.
//
// While the program runs, "Versewell.session" in the working directory holds the settings, as they would be written at
// exit, and the note that is being edited. It is written as a whole (notes/whole_files.h) soon after each change, and
// removed at a proper exit. Integers are unsigned, little-endian and 32 bits; a text is its length in bytes and its
// bytes, without a NUL:
//   offset 0    4 bytes   "VWSE"
//          4    integer   version of the format, 1
//          8    integer   size of everything from offset 16 on
//          12   integer   CRC-32 (polynomial EDB88320, as in zlib) of everything from offset 16 on
//          16   integer   number of settings; for each its section, key and text
//               integer   number of notes; for each the name of its set, its verse index (an integer, 0 to 31101), the
//                         stored note on which it was opened, and its text, both at most 65,533 bytes in the set's own
//                         encoding. The last one is in the editor; the others are texts of earlier sessions that could
//                         not be stored anywhere else.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "app/setting_texts.h"
#include "notes/note_draft.h"

inline constexpr char kSessionFile[] = "Versewell.session";
inline constexpr char kDamagedSessionFile[] = "Versewell.session.damaged";

struct Session {
    SettingTexts settings;
    std::vector<NoteDraft> drafts;
};

// The file's bytes.
std::vector<unsigned char> SessionBytes(const Session& session);

// Reads a file's bytes into `session`. False if they are not such a file, or a damaged one; then `session` has any
// contents. Names of sets that could lead to another folder are damage, too.
bool ParseSession(std::span<const unsigned char> bytes, Session& session);

// What the last run left in the folder.
enum class LastSession {
    kNone,      // a proper exit, or nothing had been changed
    kLeft,      // `session` has been read
    kDamaged,   // the file could not be read; it is renamed to kDamagedSessionFile, replacing an older one
    kInTheWay,  // the same, but it cannot be renamed either
};
LastSession ReadLastSession(const NoteFiles& files, Session& session);

// The notes in the session file of any folder, which stays as it is. None if there is no such file, or a damaged one.
std::vector<NoteDraft> DraftsIn(const NoteFiles& files);

// Was the settings file written after the session file? Then its settings are the latest ones.
bool IsSessionOutdated(const NoteFiles& files);
