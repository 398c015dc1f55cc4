#pragma once

#include <algorithm>
#include <functional>
#include <iterator>

/// Algorithms of the standard library that take a whole range, and what to look at in its elements.
/// The standard's own ones are missing in some of the libraries that the engine is built with.
namespace quillon::base::ranges {

/// A comparison of what the projection makes of two elements.
template <typename Compare, typename Projection>
constexpr auto comparing(Compare compare, Projection projection) {
  return [compare, projection](const auto& a, const auto& b) {
    return compare(std::invoke(projection, a), std::invoke(projection, b));
  };
}

template <typename Range, typename Compare = std::less<>, typename Projection = std::identity>
constexpr void sort(Range& range, Compare compare = {}, Projection projection = {}) {
  std::sort(std::begin(range), std::end(range), comparing(compare, projection));
}

template <typename Range, typename Compare = std::less<>, typename Projection = std::identity>
constexpr void stable_sort(Range& range, Compare compare = {}, Projection projection = {}) {
  std::stable_sort(std::begin(range), std::end(range), comparing(compare, projection));
}

template <typename Range, typename Compare = std::less<>, typename Projection = std::identity>
constexpr bool is_sorted(const Range& range, Compare compare = {}, Projection projection = {}) {
  return std::is_sorted(std::begin(range), std::end(range), comparing(compare, projection));
}

template <typename Range, typename Compare = std::less<>, typename Projection = std::identity>
constexpr auto max_element(Range& range, Compare compare = {}, Projection projection = {}) {
  return std::max_element(std::begin(range), std::end(range), comparing(compare, projection));
}

template <typename Range, typename Value>
constexpr auto find(Range& range, const Value& value) {
  return std::find(std::begin(range), std::end(range), value);
}

template <typename Range, typename Test>
constexpr auto find_if(Range& range, Test test) {
  return std::find_if(std::begin(range), std::end(range), test);
}

template <typename Range>
constexpr auto adjacent_find(const Range& range) {
  return std::adjacent_find(std::begin(range), std::end(range));
}

template <typename Range, typename Value>
constexpr auto lower_bound(Range& range, const Value& value) {
  return std::lower_bound(std::begin(range), std::end(range), value);
}

template <typename Range, typename Value>
constexpr bool binary_search(const Range& range, const Value& value) {
  return std::binary_search(std::begin(range), std::end(range), value);
}

template <typename Range, typename Test>
constexpr auto partition_point(Range& range, Test test) {
  return std::partition_point(std::begin(range), std::end(range), test);
}

template <typename Range, typename Test>
constexpr bool all_of(const Range& range, Test test) {
  return std::all_of(std::begin(range), std::end(range), test);
}

template <typename Range, typename Test>
constexpr bool any_of(const Range& range, Test test) {
  return std::any_of(std::begin(range), std::end(range), test);
}

template <typename Range, typename Test>
constexpr bool none_of(const Range& range, Test test) {
  return std::none_of(std::begin(range), std::end(range), test);
}

template <typename Range, typename Test>
constexpr auto count_if(const Range& range, Test test) {
  return std::count_if(std::begin(range), std::end(range), test);
}

}  // namespace quillon::base::ranges
