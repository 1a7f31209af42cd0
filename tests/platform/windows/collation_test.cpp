#include "platform/collation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace qublet {
namespace {

TEST(UserCollation, IgnoresCase) {
  const auto collation = OpenCollation();
  EXPECT_EQ(collation->Key("Ab.MP3"), collation->Key("aB.mp3"));
  EXPECT_EQ(collation->Key("\u00C4\u0416"), collation->Key("\u00E4\u0436"));
  EXPECT_NE(collation->Key("a"), collation->Key("b"));
}

TEST(UserCollation, OrdersAsPeopleDo) {
  const auto collation = OpenCollation();
  std::vector<std::string> texts{"Zebra", "\u00E4ffe", "apfel", "Birne", "affe", "10", "9", ""};
  std::stable_sort(texts.begin(), texts.end(),
                   [&](const std::string& a, const std::string& b) { return collation->Key(a) < collation->Key(b); });
  EXPECT_EQ(texts, (std::vector<std::string>{"", "10", "9", "affe", "\u00E4ffe", "apfel", "Birne", "Zebra"}));
}

TEST(UserCollation, TakesTextsOfAnyLength) {
  const auto collation = OpenCollation();
  const std::string text(20000, 'x');
  EXPECT_EQ(collation->Key(text), collation->Key(text));
  EXPECT_LT(collation->Key(text), collation->Key(text + "y"));
}

}  // namespace
}  // namespace qublet
