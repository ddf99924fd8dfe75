#pragma once

#include <gtest/gtest.h>

namespace orvane::contract {

// A program's own world, fresh for each test: on Windows it is simply there.
class ContractTest : public ::testing::Test {
 protected:
  ContractTest();
};

}  // namespace orvane::contract
