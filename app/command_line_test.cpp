#include "app/command_line.h"

#include <gtest/gtest.h>

#include "tests/support/native_scripture.h"

struct CommandLineRow {
    const char16_t* line;
    std::optional<std::u16string> folder;
    const char16_t* reference;
};

static const CommandLineRow kCommandLines[] = {
    {u"", {}, u""},
    {u"versewell.exe", {}, u""},
    {u"\"C:\\Program Files\\versewell.exe\"  ", {}, u""},
    {u"\"C:\\My --help\\versewell.exe\" John 3:16", {}, u"John 3:16"},
    {u"versewell.exe \"John 3:16\"", {}, u"John 3:16"},
    {u"versewell.exe  John\t3:16 ", {}, u"John 3:16"},
    {u"versewell.exe 1 \"John\" 3:16", {}, u"1 John 3:16"},
    {u"versewell.exe Jo\"hn 3\":16", {}, u"John 3:16"},
    {u"versewell.exe \"John 3:16", {}, u"John 3:16"},
    {u"versewell.exe Ge 1 - 3", {}, u"Ge 1 - 3"},
    {u"versewell.exe \"--help\" \"/folder\"", {}, u"--help /folder"},
    {u"versewell.exe \u0418\u043E\u0430\u043D\u043D 3:16", {}, u"\u0418\u043E\u0430\u043D\u043D 3:16"},
    {u"versewell.exe /folder \"C:\\My Notes\"", u"C:\\My Notes", u""},
    {u"versewell.exe /folder \"C:\\\" John 3:16", u"C:\\", u"John 3:16"},
    {u"versewell.exe John /folder \"D:\\\u05D0\" 3:16", u"D:\\\u05D0", u"John 3:16"},
    {u"versewell.exe /folder C:\\Notes John 3:16", u"C:\\Notes", u"John 3:16"},
    {u"versewell.exe John /folder", u"", u"John"},
    {u"versewell.exe /folder", u"", u""},
    {u"versewell.exe /folder \"\" John 3:16", u"", u"John 3:16"},
    {u"versewell.exe /folder C:\\Notes /folder", u"", u""},
    // A quote without its pair goes to the end of the line, as for every program. So such a folder is not there, and
    // none is entered that was not meant.
    {u"versewell.exe /folder \"C:\\x", u"C:\\x", u""},
    {u"versewell.exe /folder \"C:\\x John 3:16", u"C:\\x John 3:16", u""},
    {u"versewell.exe /folder C:\\x\"", u"C:\\x", u""},
    {u"versewell.exe /folder C:\\x\" John 3:16", u"C:\\x John 3:16", u""},
    {u"versewell.exe /folder C:\\my\" \"notes John", u"C:\\my notes", u"John"},
    {u"versewell.exe /folder \"", u"", u""},
};

TEST(CommandLine, HasAFolderAndAReference) {
    for (const auto& [line, folder, reference] : kCommandLines) {
        const ProgramArguments arguments = ReadCommandLine(line);
        EXPECT_EQ(arguments.folder, folder);
        EXPECT_EQ(arguments.reference, reference);
        EXPECT_FALSE(arguments.help);
        EXPECT_FALSE(arguments.version);
    }
}

TEST(CommandLine, CanAskForHelpAndVersion) {
    for (const char16_t* line : {u"v --help", u"v -h", u"v /?", u"v John 3:16 --help"})
        EXPECT_TRUE(ReadCommandLine(line).help);
    EXPECT_TRUE(ReadCommandLine(u"v --version").version);
    EXPECT_FALSE(ReadCommandLine(u"v --version").help);
    EXPECT_TRUE(ReadCommandLine(u"v --remove-list").removeList);
    EXPECT_FALSE(ReadCommandLine(u"v --version").removeList);
}

TEST(CommandLine, HasAnUnknownOptionForAReference) {
    for (const char16_t* line : {u"v --hepl", u"v John --hepl 3:16 --other"}) {
        EXPECT_EQ(ReadCommandLine(line).reference, u"--hepl");
        EXPECT_FALSE(ReadCommandLine(line).help);
    }
    EXPECT_EQ(ReadCommandLine(u"v /x").reference, u"/x");
}

TEST(CommandLine, NamesTheVerseThatGoToVerseWouldShow) {
    const VerseRecords& records = TheRealScripture().records;
    for (const auto& [reference, verse] : {std::pair{"John 3:16", 26136}, {"Ge 1 - 3", 0}, {"3:16", 71}}) {
        EXPECT_TRUE(ParseArgument(records, reference).ok) << reference;
        EXPECT_EQ(ParseArgument(records, reference).verse, verse) << reference;
    }
    for (const char* reference :
         {"", "--hepl", "/x", "-", "/", ":", " ", "Xyz 3", "Ge 0:1", "(John 3:16)", "\xC9x 3:1", "'John 3:16"})
        EXPECT_FALSE(ParseArgument(records, reference).ok) << reference;
}

TEST(CommandLine, TellsWhatAReferenceWasReadAs) {
    const VerseRecords& records = TheRealScripture().records;
    const auto told = [&](const char* reference) {
        return ReadAs(records, reference, ParseArgument(records, reference).verse);
    };
    for (const char* plain :
         {"John 3:16", "joh 3:16", "JOHN 3", "Ro", "1 john 5:7", "1Jo 5:7", "1jo", "Ge 50:26", "Re 22:21", "Ps119:105"})
        EXPECT_EQ(told(plain), "") << plain;
    EXPECT_EQ(told("1 Jn 5:7x garbage"), "\"1 Jn 5:7x garbage\" was read as Genesis 1:7");
    EXPECT_EQ(told("Es 8:9; foo"), "\"Es 8:9; foo\" was read as Esther 8:9");
    EXPECT_EQ(told("Ge 1 - 3"), "\"Ge 1 - 3\" was read as Genesis 1:1");
    EXPECT_EQ(told("Song of Solomon 2:1"), "\"Song of Solomon 2:1\" was read as Song of Solomon 1:1");
    EXPECT_EQ(told("3:16"), "\"3:16\" was read as Genesis 3:16");
}

TEST(CommandLine, HasNoQuotesAroundAReference) {
    for (const char16_t* line :
         {u"v 'Ps 119:105'", u"v \"'Ps 119:105'\"", u"v \" Ps 119:105 \"", u"v `Ps 119:105\u00B4",
          u"v \u201CPs 119:105\u201D", u"v \u00ABPs 119:105\u00BB", u"v ' Ps 119:105", u"v ''Ps 119:105''"}) {
        EXPECT_EQ(WithoutQuotes(ReadCommandLine(line).reference), u"Ps 119:105");
    }
    for (const char16_t* none : {u"", u"'", u"' '", u"\u201C\u201D"}) EXPECT_EQ(WithoutQuotes(none), u"");
    EXPECT_EQ(WithoutQuotes(u"lord's"), u"lord's");
}

TEST(CommandLine, IsReadNoFurtherThanAReferenceField) {
    const std::u16string words(5000, u'a');
    EXPECT_EQ(ReadCommandLine(u"v " + words).reference, words.substr(0, kReferenceLimit));
}

TEST(CommandLine, TellsWhatItCanHave) {
    const std::string help = HelpOnArguments("3.2.1");
    for (const char* part :
         {"Versewell 3.2.1\n", "/folder \"PATH\"", "John 3:16", "--help", "--version", "--remove-list"})
        EXPECT_NE(help.find(part), help.npos) << part;
    EXPECT_EQ(VersionLine("3.2.1"), "Versewell 3.2.1\n");
    EXPECT_EQ(NotUnderstood("Jhn 3:99"), "\"Jhn 3:99\" is not understood");
    EXPECT_EQ(NotShownNow("John 3:16"), "\"John 3:16\" was not shown, because a dialog is open");
}

// ---- The message ----------------------------------------------------------------------------------------------------

TEST(ReferenceMessage, IsReadAsWritten) {
    for (const std::u16string& reference :
         {std::u16string(), std::u16string(u"John 3:16"), std::u16string(u"\u0418\u05D0\xD83D\xDE00"),
          std::u16string(kReferenceLimit, u'\xFFFF')}) {
        EXPECT_EQ(ReferenceInMessage(MessageWithReference(reference)), reference);
    }
}

TEST(ReferenceMessage, IsNothingElse) {
    const std::string good = MessageWithReference(u"John 3:16");
    for (const std::string& bytes :
         {std::string(), good.substr(0, good.size() - 1), good.substr(0, good.size() - 2), good.substr(1), good + good,
          good + '\0', MessageWithReference(std::u16string(kReferenceLimit + 1, u'a')),
          MessageWithReference(u"John\n3:16"), MessageWithReference(u"\t"), std::string(1, '\0'),
          MessageWithReference(std::u16string(1'000'000, u'a'))}) {
        EXPECT_EQ(ReferenceInMessage(bytes), std::nullopt) << bytes.size();
    }
}
