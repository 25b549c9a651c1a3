// Tests of the words for errors of the system's print dialogs.
#include "print/printer_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

using testing::HasSubstr;

TEST(PrinterErrors, AreNotToldIfTheUserKnows) {
    EXPECT_EQ(PrinterErrorText(0), "") << "Cancel";
    EXPECT_EQ(PrinterErrorText(0x1008), "") << "no default printer: the system has said so";
    EXPECT_FALSE(ConcernsRememberedPrinter(0));
    EXPECT_FALSE(ConcernsRememberedPrinter(0x1008));
}

TEST(PrinterErrors, AreToldInWords) {
    EXPECT_EQ(PrinterErrorText(0x1007), "No printer is installed.");
    EXPECT_EQ(PrinterErrorText(0x100A), "The printer does not answer.");
    EXPECT_EQ(PrinterErrorText(0x100B), "The printer cannot be found.");
    EXPECT_THAT(PrinterErrorText(0x1004), HasSubstr("driver"));
    for (unsigned long error = 0x1001; error <= 0x100C; ++error) {
        if (error == 0x1008) continue;
        EXPECT_TRUE(PrinterErrorText(error).ends_with(".")) << error;
        EXPECT_EQ(PrinterErrorText(error).find("0x"), std::string::npos) << error;
    }
}

TEST(PrinterErrors, WithoutWordsHaveTheirNumber) {
    EXPECT_EQ(PrinterErrorText(0xFFFF), "The print dialog could not be opened (error 0xFFFF).");
    EXPECT_EQ(PrinterErrorText(0x2), "The print dialog could not be opened (error 0x2).");
}

TEST(PrinterErrors, OfARememberedPrinterLeadToTheDefaultOne) {
    const std::set<unsigned long> ofPrinter = {0x1003, 0x1004, 0x1005, 0x1009, 0x100A, 0x100B, 0x100C};
    for (unsigned long error = 0; error <= 0x1100; ++error)
        EXPECT_EQ(ConcernsRememberedPrinter(error), ofPrinter.contains(error)) << error;
    EXPECT_EQ(LostPrinterText(u"Old \u05D0"),
              u"The printer \"Old \u05D0\" is not available any more. The default printer is used instead.");
}
