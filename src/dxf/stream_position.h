#pragma once

#include <cstdint>
#include <cstdio>

namespace quillon::dxf {

/// Size in bytes of a stream that can be read again from its start, whatever its size, or -1.
/// Leaves the stream at its end.
long long seekableSize(std::FILE* stream);

/// What becomes another one when a file is written to.
struct FileStamp {
  std::uint64_t size = 0;    ///< in bytes
  std::int64_t written = 0;  ///< time of the last change, in the system's smallest unit
  std::uint64_t device = 0;  ///< with `number`, which file it is: a descriptor of another
  std::uint64_t number = 0;  ///< machine's file may come to lead to a new one
  bool operator==(const FileStamp&) const = default;
};

/// The stamp of a stream that can be read again from its start. One of zeros where the system does
/// not tell.
FileStamp stampOf(std::FILE* stream);

/// Puts a stream at a number of bytes from its start. False when that failed.
bool seekTo(std::FILE* stream, std::uint64_t position);

/// True when the read that has just failed was broken off by Ctrl-C, not by an error.
bool readWasInterrupted();

}  // namespace quillon::dxf
