// Commands that take verses out of the program as text.
#pragma once

void CopyVerse(int command);
void CopyRange(int command);
void CopyVerseList(int command);
void CopyReferences(int command);  // of an empty list too: "#" alone
void SaveRange(int command);
void SaveVerseList(int command);
void ChooseFormat(int command);
