// The command table: what each menu item, accelerator and toolbar button does.
#pragma once

// Does the work of `command`; one that is not known is ignored.
void Dispatch(int command);

// Brings menu and toolbar into the state that the program is in.
void RefreshCommands();
