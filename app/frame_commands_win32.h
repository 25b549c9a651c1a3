// Commands of the frame itself: panes, toolbar, help.
#pragma once

void CloseFrame(int command);
void ShowHelp(int command);  // the contents or one of the two topics in the menu
void TogglePane(int command);
void ToggleToolbar(int command);
void FocusList(int command);  // this and the next two show the pane if it is hidden
void FocusPassage(int command);
void FocusNotesPane(int command);   // or the note editor, while a note is edited
void OpenContextMenu(int command);  // of the focused window
void CutSelection(int command);
void CopySelection(int command);
void PasteText(int command);
void UndoEdit(int command);  // these three act in the text that has the focus, Undo also in the list
void RedoEdit(int command);
void SelectAll(int command);
