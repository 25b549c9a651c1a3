// The taskbar's list of a program ("jump list"), recorded while the program writes it. Part of the probe library.
#pragma once

// From now on the program gets recorders from COM in place of the system's objects for such lists, which Wine lacks.
// What it does with them is appended to `file` as lines of UTF-8 with tabs between the parts:
//
//   name ID                            SetAppID
//   category TITLE                     followed by its items
//   item TITLE ARGUMENTS PATH ICON
//   commit
//   delete ID                          an empty one for null
//
// As the system does, the recorder refuses a category with an item that the user has removed. False if it cannot work.
bool RecordTaskbarList(const char* file);

// The user has removed the item with these arguments. True.
bool RemoveFromTaskbarList(const char* arguments);
