// Commands that copy and save verses as text.
#pragma once

void CopyVerse(int command);
void CopyRange(int command);
void CopyVerseList(int command);
void CopyMarkedVerses();           // of the Reference List, as CopyVerseList does
void CopyReferences(int command);  // copies "#" if the list is empty
void SaveRange(int command);
void SaveVerseList(int command);
void ChooseFormat(int command);
