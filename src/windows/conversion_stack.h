#pragma once

namespace quillon::windows {

/// Stack of a thread that converts, in bytes: blocks contain blocks, and the main thread has as
/// much on most systems.
inline constexpr unsigned kConversionStack = 8U << 20;

}  // namespace quillon::windows
