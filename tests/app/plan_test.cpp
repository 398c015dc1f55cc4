#include "app/headless/plan.h"

#include <gtest/gtest.h>

namespace quillon::headless {
namespace {

TEST(NameFromFile, ReplacesWhatAScriptCannotHold) {
  EXPECT_EQ(nameFromFile("Grundplatte 2'ü"), "Grundplatte_2__");
}

}  // namespace
}  // namespace quillon::headless
