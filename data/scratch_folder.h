// A folder for one test's files, and what a test does to files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

// A fixture: `folder` is there, empty, and no other test's, of this run or another, for as long as the test lasts.
struct ScratchFolder : testing::Test {
    std::filesystem::path folder;

    void SetUp() override;
    void TearDown() override;
};

// All bytes of a file; none when it cannot be read.
std::string ReadBytes(const std::filesystem::path& path);

void WriteBytes(const std::filesystem::path& path, const std::string& bytes);

// Names of what lies in `folder`, ascending; none when there is no such folder.
std::vector<std::string> NamesIn(const std::filesystem::path& folder);
