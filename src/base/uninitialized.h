#pragma once

#include <cstddef>
#include <memory>

namespace quillon::base {

/// An array of `count` elements without values: std::make_unique_for_overwrite, which not every
/// standard library has.
template <typename T>
std::unique_ptr<T[]> uninitialized(std::size_t count) {
  return std::unique_ptr<T[]>(new T[count]);
}

}  // namespace quillon::base
