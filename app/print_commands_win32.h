// Commands that put verses on paper.
#pragma once

void ChoosePageSetup(int command);
void PrintRange(int command);
void PrintVerseList(int command);
