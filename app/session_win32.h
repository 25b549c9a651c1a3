// The session file (app/session.h) of the running program: read at the start, kept up to date by the message loop,
// removed at a proper exit.
#pragma once

#include "win32/windows_api.h"

// Reads what the last run left, and starts with its settings unless the settings file is newer. To be called once,
// after the working folder has been claimed and before the frame is created.
void OpenLastSession();

// Offers the notes that were being edited when the last run ended, and tells where its crash is described, if it
// crashed. From then on the session file is kept. To be called once the frame is shown.
void OfferLastSession();

// Offers the notes that were taken over from another copy, where they were being edited (Frame::takenDrafts). To be
// called behind each command.
void OfferTakenNotes();

// GetMessageW for the program's message loop: false for WM_QUIT. Keeps the session file up to date while it waits.
bool NextMessage(MSG& message);

// Writes the session file now if it is outdated. For moments at which another loop takes over, which may last for any
// time: message boxes, dialogs, menus and the moving of the window.
void WriteSession();

// The proper exit: writes the settings and removes the session file, unless notes of earlier sessions are still in it.
// Nothing if the start-up was not completed.
void EndSession();

// The same when the system is about to end the program while a note may still be open: keeps it in the session file.
void SuspendSession();
