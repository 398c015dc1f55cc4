#pragma once

#include <cstdint>
#include <cstdio>

namespace quillon::dxf {

/// Size in bytes of a stream that can be read again from its start, whatever its size, or -1.
/// Leaves the stream at its end.
long long seekableSize(std::FILE* stream);

/// Puts a stream at a number of bytes from its start. False when that failed.
bool seekTo(std::FILE* stream, std::uint64_t position);

/// True when the read that has just failed was broken off by Ctrl-C, not by an error.
bool readWasInterrupted();

}  // namespace quillon::dxf
