// Runs the window tests. Every failed expectation saves a picture of the screen.

#include <gtest/gtest.h>

#include "tests/driver/driver.h"

namespace {

// A class, because GoogleTest reports failures to a listener object.
struct PictureOnFailure : testing::EmptyTestEventListener {
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.failed()) PictureOfFailure();
    }
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new PictureOnFailure);
    return RUN_ALL_TESTS();
}
