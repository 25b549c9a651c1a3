// The lines in which an import is listed and told.
#pragma once

#include <string>

#include "exchange/note_import.h"

// "new", "changed", "in conflict", "older than the set's".
const char* KindText(ImportKind kind);

// What will happen to the note: "is added", "replaces the note", "is emptied", "stays as it is", "gets both texts".
const char* ChoiceText(const PlannedNote& note);

// "12 new, 3 changed, 1 in conflict, 2 older, 300 the same, 1 not placed"; parts that are 0 are left out, all of them:
// "no notes".
std::string PlanSummary(const ImportPlan& plan);

// "line 12: Romans 8:99. This verse does not exist.", "notes.txt. No verse is named."; in UTF-8.
std::string UnplacedLine(const UnplacedText& text);

// The sentence for the status bar: "16 notes imported into My Notes.", or why none were.
std::string ResultText(const ImportPlan& plan, const ImportResult& result);

// "312 notes exported."
std::string ExportedText(const ExchangedNotes& notes);
