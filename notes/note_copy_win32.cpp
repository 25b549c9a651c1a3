// Separate, because the notes window, the editor and the dialog of earlier notes copy texts.
#include "notes/note_copy_win32.h"

#include "notes/note_letters.h"
#include "typeset/html_text.h"
#include "win32/clipboard.h"
#include "win32/code_page.h"

// A control's own copy would include the text's formatting.
bool CopyNoteText(HWND owner, const std::u16string& text) {
    const HeldClipboard clipboard = text.empty() ? nullptr : OpenEmptyClipboard(owner);
    if (!clipboard || !PutText(clipboard, Wide(text))) return false;
    PutHtml(clipboard, [&] { return ClipboardHtml(HtmlOfNote(Utf8Of(text))); });
    return true;
}
