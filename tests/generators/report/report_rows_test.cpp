#include "generators/report/report_rows.h"

#include <gtest/gtest.h>

#include <new>

namespace qublet {
namespace {

ReportRow RowOf(std::size_t place) {
  ReportRow row;
  row.bytes = std::to_string(place);
  return row;
}

TEST(ReportRows, GiveWhatThreadsMadeInOrder) {
  const ReportRows::Make make = [](std::size_t place) { return RowOf(place); };
  ReportRows rows(1000, make);
  for (int place = 0; place < 1000; ++place) ASSERT_EQ(rows.Next().bytes, std::to_string(place));
}

TEST(ReportRows, HandOnThatMemoryIsWanting) {
  const ReportRows::Make make = [](std::size_t place) {
    if (place == 500) throw std::bad_alloc();
    return RowOf(place);
  };
  ReportRows rows(1000, make);
  const auto all = [&] {
    for (int place = 0; place < 1000; ++place) rows.Next();
  };
  EXPECT_THROW(all(), std::bad_alloc);
}

}  // namespace
}  // namespace qublet
