// Commands that scroll the Passage or change how text is shown.
#pragma once

void GoToVerse(int command);
void GoToNeighbour(int command);  // previous or next verse, chapter or book
void GoToBook(int number);        // 0: Genesis
void GoToBookmark(int number);    // 0..9
void SetBookmark(int number);     // to the Passage's target verse
void ReadListContext(int command);
void ReadCurrentEntry(int command);  // the same for Enter, but does not show a hidden Passage
void ToggleParagraphFormat(int command);
void SetItalics(int command);

void OpenTodaysDevotional(int command);  // this morning's or this evening's
void OpenDevotional(int verse);          // ignored past the last verse or without a devotional note set
void OpenTodaysProverb(int command);

// Updates the texts of the bookmarks' menu items.
void LabelBookmarks();
