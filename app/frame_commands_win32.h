// Commands of the frame itself: panes, toolbar, help, About.
#pragma once

void ShowAbout(int command);
void CloseFrame(int command);
void ShowHelp(int command);  // the contents or one of the two topics that stand in the menu
void TogglePane(int command);
void ToggleToolbar(int command);
void FocusList(int command);  // both show a hidden pane
void FocusPassage(int command);
void EnterPassage(int command);     // leaves a hidden one hidden
void OpenContextMenu(int command);  // of the window that has the focus
void CutSelection(int command);
void CopySelection(int command);
void PasteText(int command);
