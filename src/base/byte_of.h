#pragma once

namespace quillon::base {

/// A character as a number from 0 to 255, whatever sign the system gives to char.
constexpr unsigned byteOf(char c) { return static_cast<unsigned char>(c); }

}  // namespace quillon::base
