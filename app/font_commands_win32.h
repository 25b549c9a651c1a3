// Commands that choose fonts and colours.
#pragma once

void ChooseListFont(int command);
void ChoosePassageFont(int command);
void ChooseNotesFont(int command);
void ChooseHighlightColor(int command);
