#pragma once

#include <gtest/gtest.h>

#include "embedding/fake_flutter_library.h"

namespace orvane::embedding_tests {

// Each test starts with a library that nobody has called, and leaves no reference or lock behind.
class EmbeddingTest : public ::testing::Test {
 protected:
  void SetUp() override { resetFakeLibrary(); }
  void TearDown() override {
    EXPECT_EQ(fakeLibrary().messengerReferences, 0);
    EXPECT_EQ(fakeLibrary().messengerLocks, 0);
  }
};

}  // namespace orvane::embedding_tests
