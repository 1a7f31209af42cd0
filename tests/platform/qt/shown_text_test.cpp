#include "platform/qt/shown_text.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(ShownMessage, BreaksItsLinesAtEachKindOfEnd) {
  EXPECT_EQ(ShownMessage("one\rtwo").toStdString(), "one\ntwo");
  EXPECT_EQ(ShownMessage("one\n\rtwo").toStdString(), "one\ntwo");
  EXPECT_EQ(ShownMessage("one\r\ntwo\r\nthree").toStdString(), "one\ntwo\nthree");
}

}  // namespace
}  // namespace qublet
