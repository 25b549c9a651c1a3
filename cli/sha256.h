// Digests of files, the same on every system (FIPS 180-4). The window takes the system's own procedure.
#pragma once

#include <span>
#include <string>

// SHA-256 of `bytes` in 64 hexadecimal digits.
std::string Sha256Digits(std::span<const unsigned char> bytes);
