// Names the tests of a table after its rows.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace KestXmlLib20 {

/// For INSTANTIATE_TEST_SUITE_P over rows that have a `name`.
struct RowName {
  template <typename Row>
  std::string operator()(testing::TestParamInfo<Row> const& test) const {
    return test.param.name;
  }
};

}  // namespace KestXmlLib20
