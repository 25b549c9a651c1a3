// Commands that create, rename and delete note sets, and the marks on their tabs.
#pragma once

void CreateSet(int command);
void RenameSet(int command);
void DeleteSet(int command);
void MarkSets(int command);  // from a pane that has painted
