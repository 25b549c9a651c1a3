// The memory of a thread's stack.
#pragma once

// Gives the part of the calling thread's stack that it does not use now back to the system; it is there again when it
// is used. Only under Wine, which writes to the upper 960 KiB of each stack when the thread starts, so that they count
// as used although most threads never come that far. Windows adds pages to a stack one by one.
void GiveBackUnusedStack();
