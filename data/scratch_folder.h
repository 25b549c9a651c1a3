// A folder for the files of a test, and helpers for files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

// A fixture: `folder` is an empty folder that exists during the test and is not shared with other tests or runs.
struct ScratchFolder : testing::Test {
    std::filesystem::path folder;

    void SetUp() override;
    void TearDown() override;
};

// All bytes of a file; empty when it cannot be read.
std::string ReadBytes(const std::filesystem::path& path);

void WriteBytes(const std::filesystem::path& path, const std::string& bytes);

// Sorted names of the entries of `folder`; empty when it does not exist.
std::vector<std::string> NamesIn(const std::filesystem::path& folder);
