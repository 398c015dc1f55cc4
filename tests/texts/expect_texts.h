#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string_view>

#include "texts/string_table.h"

namespace quillon::texts {

/// A row of the string table.
struct Row {
  int id;
  std::string_view german;
  std::string_view english;
};

template <std::size_t N>
void expectTexts(const std::array<Row, N>& rows) {
  for (const auto& [id, german, english] : rows) {
    EXPECT_EQ(loadString(id), german) << id;
    EXPECT_EQ(loadString(id + kEnglish), english) << id;
  }
}

}  // namespace quillon::texts
