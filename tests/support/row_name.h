#pragma once

#include <gtest/gtest.h>

#include <string>

namespace orvane {

// Names a test of a table after its row, whose member `test` is a word.
template <typename Row>
std::string nameOfRow(const ::testing::TestParamInfo<Row>& row) {
  return row.param.test;
}

}  // namespace orvane
