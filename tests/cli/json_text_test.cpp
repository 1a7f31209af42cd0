#include "cli/json_text.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(JsonText, EscapesWhatATerminalCouldTakeForAnOrderAndWhatCanNotBeSeen) {
  EXPECT_EQ(JsonText("a\"b\\c/d"), "\"a\\\"b\\\\c/d\"");
  EXPECT_EQ(JsonText(std::string("\0\x1F", 2)), "\"\\u0000\\u001f\"");
  EXPECT_EQ(JsonText("\n\x1B\x7F\u009B"), "\"\\u000a\\u001b\\u007f\\u009b\"");
  EXPECT_EQ(JsonText("\u202E\u2066\u200B\uFEFF"), "\"\\u202e\\u2066\\u200b\\ufeff\"");
  EXPECT_EQ(JsonText("\uF03A\uF05C\uE000"), "\"\\uf03a\\uf05c\\ue000\"");
  EXPECT_EQ(JsonText("\U000F0000\U0010FFFD"), "\"\\udb80\\udc00\\udbff\\udffd\"");
}

TEST(JsonText, KeepsTextAsItIs) {
  EXPECT_EQ(JsonText(""), "\"\"");
  EXPECT_EQ(JsonText("Bj\u00F6rk \u97F3"), "\"Bj\u00F6rk \u97F3\"");
  EXPECT_EQ(JsonText("caf\u00E9 \u0414\u0430 \U0001F3B5"), "\"caf\u00E9 \u0414\u0430 \U0001F3B5\"");
}

}  // namespace
}  // namespace qublet
