// Going back and forward through the places that were read (app/places.h).
#pragma once

#include <functional>
#include <string>

#include "verselist/verse_list.h"
#include "win32/windows_api.h"

// Does `move`. If Passage, note or list are then another one, that was a jump, and Back leads to where they were. A
// move within a move is a part of it.
void Jump(const std::function<void()>& move);

// Is the command one that leads to another place, if the panes differ afterwards? Others scroll, or are sent while the
// panes show what has happened before.
bool MayJump(int command);

// The user takes the thumb of a pane's scroll bar, and lets it go: one jump.
void BeginThumbDrag(int command);
void EndThumbDrag(int command);

bool CanGoBack();
bool CanGoForward();

// IDM_BACK and IDM_FORWARD. A pane that shows something else then is shown, unless another such pane can be seen.
void GoThroughPlaces(int command);

// Takes Backspace and Shift+Backspace, except in the note editor, and the mouse's buttons for back and forward anywhere
// in the frame. Returns whether the message was one of them, or the release of such a button.
bool StepsThroughPlaces(const MSG& message);

// To be called when a note set has got another name.
void FollowRenamedSet(const std::string& before, const EntrySets::Set& now);

// To be called when note sets have gone: the notes of these leave the lists.
void ForgetGoneSets();

// The command of the keyboard's own keys for back and forward: WM_APPCOMMAND. False if it is another one.
bool OnAppCommand(int appCommand);
