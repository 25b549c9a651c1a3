// Commands that move the Passage or change how it shows.
#pragma once

void GoToVerse(int command);
void GoToNeighbour(int command);  // previous or next verse, chapter or book
void GoToBook(int number);        // 0: Genesis
void GoToBookmark(int number);    // 0..9
void SetBookmark(int number);     // to the Passage's target verse
void ReadListContext(int command);
void ReadCurrentEntry(int command);  // the same for Enter, which leaves a hidden Passage hidden
void ToggleParagraphFormat(int command);
void SetItalics(int command);

void OpenTodaysDevotional(int command);  // this morning's or this evening's
void OpenDevotional(int verse);          // ignored where no note set is the devotional
void OpenTodaysProverb(int command);

// Writes what the bookmarks hold into their menu items.
void LabelBookmarks();
