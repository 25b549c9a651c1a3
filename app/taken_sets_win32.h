// Taking over the notes of another folder, and the note sets that come with the program.
#pragma once

// To be called before the sets and the settings are read. Finishes what a former run has left of it. If there are no
// note sets yet, an installed copy asks once whether to take over those of an older copy, and then the sets that come
// with the program are copied beside them, so that there is a Devotional menu.
void PrepareSets();

// Asks for a folder, copies its note sets, and shows them. What was being written there is offered behind the command.
void TakeOverSets(int command);
