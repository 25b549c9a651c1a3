// The few file operations that note sets need. The program gives them on Windows' files in the working directory, a
// test on a scratch folder or on files that fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

struct NoteFiles {
    void* device = nullptr;  // handed back to all

    // Names of the files `*.nmi`, in the order in which the directory lists them.
    std::vector<std::string> (*listIndexFiles)(void* device) = nullptr;

    // Reads at most `limit` bytes of `name` from `offset` on into `bytes`, as many as there are. False when the file
    // cannot be opened for reading (shared for reading).
    bool (*read)(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) = nullptr;

    // Size of `name` in bytes; 0 when it cannot be opened.
    std::uint64_t (*size)(void* device, const std::string& name) = nullptr;

    // Creates `name` with `bytes`. False when it exists or cannot be made; then nothing was written.
    bool (*create)(void* device, const std::string& name, std::span<const unsigned char> bytes) = nullptr;
};
