// The arguments that the program is started with, and the reference that a second copy passes on to the first.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "scripture/reference_parser.h"

struct ProgramArguments {
    std::optional<std::u16string> folder;  // of /folder "PATH"; empty if no path follows it

    // All other words with a blank between two of them, at most kReferenceLimit letters; the first word that looks like
    // an option and is none, if there is one.
    std::u16string reference;

    bool help = false;        // --help, -h or /?
    bool version = false;     // --version
    bool removeList = false;  // --remove-list
};

// Takes the command line of a process apart, which begins with the name of the program. Blanks and tabs are between
// words except in quotes, which are not part of a word. The path of /folder ends at its second quote, because a path
// has none; a backslash has no meaning of its own.
ProgramArguments ReadCommandLine(std::u16string_view line);

// What --help and --version tell, lines with "\n".
std::string HelpOnArguments(std::string_view version);
std::string VersionLine(std::string_view version);

// The reference without quotation marks and blanks around it, which a shell or a page that it was copied from has left.
std::u16string_view WithoutQuotes(std::u16string_view reference);

// The verse that such a reference names, as typed into Go To Verse. Not ok for what looks like an option, and for what
// does not begin with a letter or a digit: there it would be a verse of Genesis.
ParsedReference ParseArgument(const VerseRecords& records, const std::string& reference);

// The status bar's text for a reference or an option that means nothing, and for a reference that is not shown while a
// dialog or a message box is open.
std::string NotUnderstood(std::string_view argument);
std::string NotShownNow(std::string_view reference);

// The status bar's text for a reference that is shown as `verse`: empty if it is the verse's name, or its beginning, as
// far as it goes ("John 3:16", "joh 3", "1co"). Anything else in it has not been used, or not as it was meant.
std::string ReadAs(const VerseRecords& records, const std::string& reference, int verse);

// The bytes of a message that passes on a reference: UTF-16 with a zero at the end.
std::string MessageWithReference(std::u16string_view reference);

// The reference in such a message. None if the bytes are no such message: too long, without a zero at the end, with
// another zero or control characters.
std::optional<std::u16string> ReferenceInMessage(std::string_view bytes);
