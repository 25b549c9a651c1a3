// Commands of the frame itself: panes, toolbar, help.
#pragma once

void CloseFrame(int command);
void ShowHelp(int command);  // the contents or one of the two topics in the menu
void TogglePane(int command);
void ToggleToolbar(int command);
void FocusList(int command);  // this and FocusPassage show the pane if it is hidden
void FocusPassage(int command);
void EnterPassage(int command);     // does not show a hidden Passage
void OpenContextMenu(int command);  // of the focused window
void CutSelection(int command);
void CopySelection(int command);
void PasteText(int command);
void UndoEdit(int command);  // these three act in the text that has the focus
void RedoEdit(int command);
void SelectAll(int command);
