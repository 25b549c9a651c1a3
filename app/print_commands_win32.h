// Commands that print verses, and the page set-up.
#pragma once

void ChoosePageSetup(int command);
void PrintRange(int command);
void PrintVerseList(int command);
