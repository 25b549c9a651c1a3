// Runs the window tests. Every failed expectation keeps a picture of the screen as it was at that moment.

#include <gtest/gtest.h>

#include "tests/driver/driver.h"

// GoogleTest's own way to hear of failures is a class.
struct PictureOnFailure : testing::EmptyTestEventListener {
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.failed()) PictureOfFailure();
    }
};

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new PictureOnFailure);
    return RUN_ALL_TESTS();
}
