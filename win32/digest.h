// Digests of bytes.
#pragma once

#include <span>
#include <string>

// SHA-256 of `bytes` in 64 hexadecimal digits, by the system's own implementation; empty if it has none.
std::string Sha256Of(std::span<const unsigned char> bytes);
