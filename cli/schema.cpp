#include "cli/schema.h"

static constexpr SchemaField kVerseFields[] = {
    {"reference", FieldType::kText, "full name of the verse, Genesis 1:1"},
    {"index", FieldType::kNumber, "of the verse in the Bible, from 0"},
    {"book", FieldType::kNumber, "1 to 66"},
    {"name", FieldType::kText, "of the book"},
    {"chapter", FieldType::kNumber, "from 1"},
    {"verse", FieldType::kNumber, "from 1"},
    {"paragraph", FieldType::kYesOrNo, "the verse begins a paragraph"},
    {"text", FieldType::kText, "the words, without marks"},
    {"supplied", FieldType::kPlaces, "places in the text of the words that the translators supplied"},
};

static constexpr SchemaField kFoundFields[] = {
    {"marks", FieldType::kPlaces, "places in the text of the words that were found; only of find", true},
};

static constexpr SchemaField kReferenceFields[] = {
    {"reference", FieldType::kText, "short name of the verse, Ge 1:1"},
    {"index", FieldType::kNumber, "of the verse in the Bible, from 0"},
};

static constexpr SchemaField kCountFields[] = {
    {"verses", FieldType::kNumber, "with the words"},
    {"occurrences", FieldType::kNumber, "of the words in them"},
};

static constexpr SchemaField kBookFields[] = {
    {"book", FieldType::kNumber, "1 to 66"},
    {"name", FieldType::kText, "of the book"},
    {"verses", FieldType::kNumber, "of the book with the words"},
    {"words", FieldType::kNumber, "that the book has"},
};

static constexpr SchemaField kWordFields[] = {
    {"word", FieldType::kText, "in lower case"},
    {"verses", FieldType::kNumber, "with the word"},
    {"occurrences", FieldType::kNumber, "of the word"},
};

static constexpr SchemaField kMeaningFields[] = {
    {"typed", FieldType::kText, "the reference"},
    {"window", FieldType::kSpanOrNull, "what the window understands"},
    {"unused", FieldType::kText, "what the window does not use of it"},
    {"meant", FieldType::kSpans, "what was probably meant; none if that is not known"},
    {"same", FieldType::kYesOrNo, "both are the same verses"},
};

static constexpr SchemaField kReadingFields[] = {
    {"time", FieldType::kText, "\"morning\" or \"evening\""},
    {"set", FieldType::kText, "name of the note set"},
    {"note", FieldType::kText, "the reading; empty if there is none"},
};

static constexpr SchemaField kTextFields[] = {
    {"edition", FieldType::kText, "of the text"},
    {"folder", FieldType::kText, "with its files"},
    {"books", FieldType::kNumber, "of the Bible"},
    {"verses", FieldType::kNumber, "of the text"},
    {"words", FieldType::kNumber, "that are different"},
    {"asBuilt", FieldType::kYesOrNo, "all files are those of the build"},
};

static constexpr SchemaField kFileFields[] = {
    {"file", FieldType::kText, "its name"},
    {"sha256", FieldType::kText, "its digest; empty if it cannot be read"},
    {"built", FieldType::kText, "the digest of the file of the build"},
    {"state", FieldType::kText, "\"as built\", \"differs\" or \"missing\""},
};

static constexpr SchemaField kDifferenceFields[] = {
    {"reference", FieldType::kText, "short name of the verse, Ge 1:1"},
    {"ours", FieldType::kText, "what this text has there; empty if nothing"},
    {"theirs", FieldType::kText, "what the other text has; empty if nothing"},
    {"sort", FieldType::kText,
     "\"mark\", \"possessive\", \"spelling\", \"name\", \"hyphen\", \"italics\", \"stop\", \"capital\" or \"word\""},
    {"alsoOurs", FieldType::kText, "names of the texts that read as this one, separated by \", \""},
    {"alsoTheirs", FieldType::kText, "names of those that read as the other one"},
};

static constexpr SchemaField kDoctorFields[] = {
    {"textFolder", FieldType::kText, "with the scripture files; empty if there is none"},
    {"notesFolder", FieldType::kText, "with the window's settings and notes"},
    {"codePage", FieldType::kNumber, "of the notes that are not in UTF-8"},
    {"lock", FieldType::kText,
     "of the note sets: \"free\", \"held\" by another program, \"impossible\", or \"none\" if nobody has locked them "
     "yet"},
    {"backups", FieldType::kNumber, "of note sets"},
    {"backupBytes", FieldType::kNumber, "of their files"},
    {"earlierBytes", FieldType::kNumber, "of the files with earlier notes"},
    {"troubles", FieldType::kNumber, "that follow"},
};

static constexpr SchemaField kKeptFields[] = {
    {"file", FieldType::kText, "its name in the folder of the notes"},
    {"bytes", FieldType::kNumber, "of the file"},
    {"meaning", FieldType::kText, "what it is, in words"},
};

static constexpr SchemaField kTroubleFields[] = {
    {"text", FieldType::kText, "what is wrong or, with a command, what that would do, in words"},
    {"command", FieldType::kText, "what to type; empty if no command helps"},
};

static constexpr SchemaField kNoteFields[] = {
    {"set", FieldType::kText, "name of the note set"},
    {"reference", FieldType::kText, "full name of the verse, Genesis 1:1"},
    {"index", FieldType::kNumber, "of the verse in the Bible, from 0"},
    {"note", FieldType::kText, "its text"},
};

static constexpr SchemaField kFoundInNoteFields[] = {
    {"marks", FieldType::kPlaces, "places in the text of what was found; only of notes search", true},
};

static constexpr SchemaField kAboutFields[] = {
    {"marks", FieldType::kPlaces, "places in the text of that reference"},
    {"names", FieldType::kSpanOrNull, "the first reference of the note that names the verse"},
};

static constexpr SchemaField kSetFields[] = {
    {"set", FieldType::kText, "its name"},
    {"notes", FieldType::kNumber, "that it has"},
    {"bytes", FieldType::kNumber, "of its data file"},
    {"damaged", FieldType::kYesOrNo, "it can only be read"},
};

static constexpr SchemaField kEarlierFields[] = {
    {"number", FieldType::kNumber, "for notes restore; 1 is the latest"},
    {"time", FieldType::kNumber, "when it was kept, in seconds since 1970, UTC"},
    {"reason", FieldType::kText, "why it was kept, in words"},
    {"note", FieldType::kText, "its text"},
};

static constexpr SchemaField kFaultFields[] = {
    {"text", FieldType::kText, "what is wrong, in words"},
    {"mended", FieldType::kYesOrNo, "as far as it can be"},
};

static constexpr SchemaField kExportedFields[] = {
    {"set", FieldType::kText, "its name"},
    {"notes", FieldType::kNumber, "that were written"},
};

static constexpr SchemaField kImportedFields[] = {
    {"reference", FieldType::kText, "short name of the verse, Ge 1:1"},
    {"index", FieldType::kNumber, "of the verse in the Bible, from 0"},
    {"state", FieldType::kText, "\"new\", \"changed\", \"in conflict\" or \"older than the set's\""},
    {"change", FieldType::kText, "what is done, in words"},
    {"before", FieldType::kText, "the set's note"},
    {"note", FieldType::kText, "the file's note"},
};

static constexpr SchemaKind kSchema[] = {
    {"verse", "a verse, of read and find", kVerseFields, kFoundFields},
    {"reference", "a verse, of find --refs", kReferenceFields},
    {"count", "the result of find --count", kCountFields},
    {"book", "a book, of find --by-book", kBookFields},
    {"word", "a word, of words", kWordFields},
    {"meaning", "a reference, of what", kMeaningFields},
    {"reading", "a reading, of today", kVerseFields, kReadingFields},
    {"proverb", "a verse, of today", kVerseFields},
    {"note", "a note, of notes show, list and search", kNoteFields, kFoundInNoteFields},
    {"about", "a note that names a verse, of notes about", kNoteFields, kAboutFields},
    {"set", "a note set, of notes sets and doctor", kSetFields},
    {"earlier", "an earlier note, of notes history", kEarlierFields},
    {"fault", "what is wrong with note sets, of notes verify", kFaultFields},
    {"exported", "the result of notes export", kExportedFields},
    {"imported", "a note that is not the same in the set, of notes import", kImportedFields},
    {"text", "the text, of text", kTextFields},
    {"file", "a file of the text, of text and doctor", kFileFields},
    {"difference", "a place of the text, of text --differences", kDifferenceFields},
    {"doctor", "folders and sizes, of doctor", kDoctorFields},
    {"kept", "a file of settings, or one that was left, of doctor", kKeptFields},
    {"trouble", "what is wrong, of doctor", kTroubleFields},
};

std::span<const SchemaKind> TheSchema() {
    return kSchema;
}

const char* NameOfType(FieldType type) {
    switch (type) {
        case FieldType::kText: return "text";
        case FieldType::kNumber: return "number";
        case FieldType::kYesOrNo: return "true or false";
        case FieldType::kPlaces: return "list of [begin, end) in letters";
        case FieldType::kSpanOrNull: return "object of first, last (indexes), name; null if none";
        case FieldType::kSpans: return "array of such objects: first, last (indexes), name";
    }
    return "";
}
