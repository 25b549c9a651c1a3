// Notes as a web page, in UTF-8 without anything from elsewhere:
//
//     <body data-set="My Notes">
//     ... a table of contents by book ...
//     <section id="Rom"> <h2>Romans</h2>
//     <article id="Rom.8.28" data-verse="Romans 8:28" data-mark="ldmkapoc">
//     <h3><a href="#Rom.8.28">Romans 8:28</a></h3>
//     <p class="verse">And we know that ...</p>
//     <pre class="note">The text of the note,
//     line by line.</pre>
//     </article>
//
// "data-mark" is the mark of the note (exchange/portable_text.h). The verse is there if it is wished for. References in
// a note are links to the notes of these verses, or show the verse's text under the mouse if there is no such note.
//
// When read, an element with "data-verse" is a note; its text is that of the element of the class "note" in it, with
// tags left out and <br> as the end of a line. Without such an element it is the rest of the text, but for the heading
// and elements of the class "verse", with blanks and lines as they are shown. Headings that name a verse begin notes,
// too, so that pages made by hand can be read. What stands outside of notes is passed over.
#pragma once

#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"

std::string WriteHtmlNotes(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions& options);
