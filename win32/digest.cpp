#include "win32/digest.h"

#include <algorithm>
#include <array>

#include "win32/handles.h"
#include "win32/system_library.h"

// After windows.h, which it needs.
#include <bcrypt.h>

static constexpr std::size_t kDigestSize = 32;

using Digest = std::array<unsigned char, kDigestSize>;

namespace {

// The procedures of bcrypt.dll, which is loaded only now: the program should start without it.
struct Hashing {
    decltype(&BCryptOpenAlgorithmProvider) open;
    decltype(&BCryptCloseAlgorithmProvider) close;
    decltype(&BCryptCreateHash) create;
    decltype(&BCryptHashData) add;
    decltype(&BCryptFinishHash) finish;
    decltype(&BCryptDestroyHash) destroy;
};

}  // namespace

static bool FindAll(HMODULE library, Hashing& hashing) {
    return FindProcedure(library, "BCryptOpenAlgorithmProvider", hashing.open) &&
           FindProcedure(library, "BCryptCloseAlgorithmProvider", hashing.close) &&
           FindProcedure(library, "BCryptCreateHash", hashing.create) &&
           FindProcedure(library, "BCryptHashData", hashing.add) &&
           FindProcedure(library, "BCryptFinishHash", hashing.finish) &&
           FindProcedure(library, "BCryptDestroyHash", hashing.destroy);
}

static bool Add(const Hashing& hashing, BCRYPT_HASH_HANDLE hash, std::span<const unsigned char> bytes) {
    static constexpr std::size_t kMost = 1u << 30;  // at a time
    for (; !bytes.empty(); bytes = bytes.subspan(std::min(bytes.size(), kMost))) {
        const auto size = static_cast<ULONG>(std::min(bytes.size(), kMost));
        if (!BCRYPT_SUCCESS(hashing.add(hash, const_cast<PUCHAR>(bytes.data()), size, 0))) return false;
    }
    return true;
}

static bool HashWith(const Hashing& hashing, BCRYPT_ALG_HANDLE algorithm, std::span<const unsigned char> bytes,
                     Digest& digest) {
    BCRYPT_HASH_HANDLE hash = nullptr;
    if (!BCRYPT_SUCCESS(hashing.create(algorithm, &hash, nullptr, 0, nullptr, 0, 0))) return false;
    const bool isHashed = Add(hashing, hash, bytes) &&
                          BCRYPT_SUCCESS(hashing.finish(hash, digest.data(), static_cast<ULONG>(digest.size()), 0));
    hashing.destroy(hash);
    return isHashed;
}

static std::string InHexadecimal(const Digest& digest) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const unsigned char value : digest) {
        text += kDigits[value >> 4];
        text += kDigits[value & 15];
    }
    return text;
}

std::string Sha256Of(std::span<const unsigned char> bytes) {
    Hashing hashing{};
    if (!FindAll(SystemLibrary(L"bcrypt.dll"), hashing)) return "";
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    if (!BCRYPT_SUCCESS(hashing.open(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0))) return "";
    Digest digest{};
    const bool isHashed = HashWith(hashing, algorithm, bytes, digest);
    hashing.close(algorithm, 0);
    return isHashed ? InHexadecimal(digest) : "";
}
