#pragma once

#include <cstdint>
#include <cstdio>

namespace quillon::dxf {

/// Changes whenever a file is written to.
struct FileStamp {
  std::uint64_t size = 0;    ///< in bytes
  std::int64_t written = 0;  ///< time of the last change, in the system's smallest unit
  std::uint64_t device = 0;  ///< together with `number`, which file it is: a descriptor
  std::uint64_t number = 0;  ///< on a network share may come to refer to another one
  bool operator==(const FileStamp&) const = default;
};

/// The stamp of a seekable stream. All zeros where the system does not tell.
FileStamp stampOf(std::FILE* stream);

/// What is to be known of a stream before it is read.
struct StreamState {
  long long size = -1;  ///< in bytes; -1 if the stream cannot seek
  FileStamp stamp;      ///< all zeros for one that cannot, and where the system does not tell
};

/// The stream stays where it is.
StreamState stateOf(std::FILE* stream);

/// Seeks to an offset from the start. False on failure.
bool seekTo(std::FILE* stream, std::uint64_t position);

/// True when the read that just failed was interrupted by Ctrl-C.
bool readWasInterrupted();

}  // namespace quillon::dxf
