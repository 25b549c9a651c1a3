#include "data/file_writer.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <random>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

void AppendNumber(std::string& bytes, std::uint64_t number, int byteCount) {
    for (; byteCount > 0; --byteCount, number >>= 8) bytes += static_cast<char>(number & 0xff);
}

static bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Flushes the file to the disk, because it is renamed later and the new name must never lead to an incomplete file.
static bool WriteFile(const fs::path& path, const std::string& bytes) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0) return false;
    const bool written = WriteAll(file, bytes) && fsync(file) == 0;
    return close(file) == 0 && written;
}

// Random, because two runs may write to the same folder at the same time.
static std::string TemporarySuffix() {
    return "." + std::to_string(std::random_device{}()) + ".new";
}

// Checked for all files before the first one is put in place, so that this failure cannot happen half-way.
static Complaint CheckPlace(const fs::path& place) {
    std::error_code error;
    if (fs::exists(place, error) && !fs::is_regular_file(place, error)) return place.string() + " is in the way";
    return {};
}

static Complaint CheckFreePlace(const fs::path& place) {
    std::error_code error;
    const bool isThere = fs::exists(fs::symlink_status(place, error));
    return isThere ? place.string() + " exists already and is left as it is" : Complaint();
}

static Complaint WriteTemporaries(const fs::path& folder, const std::vector<DataFile>& files,
                                  const std::string& suffix) {
    for (const DataFile& file : files) {
        const fs::path place = folder / file.name;
        if (!WriteFile(place.string() + suffix, file.bytes)) return "cannot write " + place.string();
    }
    return {};
}

static Complaint Replace(const fs::path& folder, const std::vector<DataFile>& files, const std::string& suffix) {
    for (const DataFile& file : files) {
        const fs::path place = folder / file.name;
        std::error_code error;
        fs::rename(place.string() + suffix, place, error);
        if (error) return "cannot replace " + place.string() + ": " + error.message();
    }
    return {};
}

// Renames a file, unless the new name exists. Tries two ways, because some file systems do not support links and others
// do not support RENAME_NOREPLACE.
static bool MoveToFreeName(const std::string& from, const fs::path& to) {
    if (link(from.c_str(), to.c_str()) == 0) return true;
    return errno != EEXIST && renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0;
}

static Complaint Add(const fs::path& folder, const std::vector<DataFile>& files, const std::string& suffix) {
    for (std::size_t i = 0; i < files.size(); ++i) {
        const fs::path place = folder / files[i].name;
        if (MoveToFreeName(place.string() + suffix, place)) continue;
        const std::string reason = std::generic_category().message(errno);
        std::error_code ignored;
        for (std::size_t added = 0; added < i; ++added) fs::remove(folder / files[added].name, ignored);
        return "cannot create " + place.string() + ": " + reason;
    }
    return {};
}

using Check = Complaint (*)(const fs::path& place);
using PutInPlace = Complaint (*)(const fs::path& folder, const std::vector<DataFile>& files, const std::string& suffix);

static Complaint Write(const fs::path& folder, const std::vector<DataFile>& files, Check check, PutInPlace putInPlace) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) return "cannot make the folder " + folder.string() + ": " + error.message();
    for (const DataFile& file : files) {
        const Complaint complaint = check(folder / file.name);
        if (!complaint.empty()) return complaint;
    }
    const std::string suffix = TemporarySuffix();
    Complaint complaint = WriteTemporaries(folder, files, suffix);
    if (complaint.empty()) complaint = putInPlace(folder, files, suffix);
    for (const DataFile& file : files) fs::remove(folder / (file.name + suffix), error);
    return complaint;
}

Complaint WriteDataFiles(const fs::path& folder, const std::vector<DataFile>& files) {
    return Write(folder, files, CheckPlace, Replace);
}

Complaint WriteNewFiles(const fs::path& folder, const std::vector<DataFile>& files) {
    return Write(folder, files, CheckFreePlace, Add);
}
