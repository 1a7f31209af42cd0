#include "playlist/recent_files.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

using Paths = std::vector<std::string>;

AppSettings Settings(std::int16_t RCount, bool RPath = false) {
  AppSettings settings;
  settings.RCount = RCount;
  settings.RPath = RPath;
  return settings;
}

Paths Numbered(int count) {
  Paths paths;
  for (int i = 1; i <= count; ++i) paths.push_back("c:\\" + std::to_string(i) + ".m3u");
  return paths;
}

TEST(AddRecentFile, AppendsTheNewest) {
  Paths recent;
  AddRecentFile(recent, "c:\\a.m3u", Settings(10));
  AddRecentFile(recent, "c:\\b.m3u", Settings(10));
  EXPECT_EQ(recent, (Paths{"c:\\a.m3u", "c:\\b.m3u"}));
}

TEST(AddRecentFile, LeavesAnEntryInItsPlace) {
  Paths recent{"c:\\a.m3u", "c:\\b.m3u"};
  AddRecentFile(recent, "c:\\a.m3u", Settings(10));
  EXPECT_EQ(recent, (Paths{"c:\\a.m3u", "c:\\b.m3u"}));
  AddRecentFile(recent, "c:\\A.m3u", Settings(10));
  EXPECT_EQ(recent.size(), 3U) << "compared letter for letter";
}

TEST(AddRecentFile, DropsTheOldestBeyondTheCount) {
  Paths recent = Numbered(5);
  AddRecentFile(recent, "c:\\new.m3u", Settings(3));
  EXPECT_EQ(recent, (Paths{"c:\\4.m3u", "c:\\5.m3u", "c:\\new.m3u"}));
  AddRecentFile(recent, "c:\\one.m3u", Settings(1));
  EXPECT_EQ(recent, Paths{"c:\\one.m3u"});
}

TEST(AddRecentFile, KeepsNothingForACountBelowOne) {
  Paths recent;
  AddRecentFile(recent, "c:\\a.m3u", Settings(0));
  AddRecentFile(recent, "c:\\a.m3u", Settings(-1));
  EXPECT_TRUE(recent.empty());
}

TEST(RecentCaptions, BeginWithTheNewestAndANumberAsWideAsTheCount) {
  const Paths recent{"c:\\m\\old.m3u", "c:\\m\\new.m3u"};
  EXPECT_EQ(RecentCaptions(recent, Settings(10)), (Paths{"01: new.m3u", "02: old.m3u"}));
  EXPECT_EQ(RecentCaptions(recent, Settings(9)), (Paths{"1: new.m3u", "2: old.m3u"}));
  EXPECT_EQ(RecentCaptions(recent, Settings(10, true)), (Paths{"01: c:\\m\\new.m3u", "02: c:\\m\\old.m3u"}));
  EXPECT_TRUE(RecentCaptions({}, Settings(10)).empty());
}

TEST(RecentCaptions, HaveRoomFor20) {
  const Paths captions = RecentCaptions(Numbered(25), Settings(20));
  ASSERT_EQ(captions.size(), 20U);
  EXPECT_EQ(captions.front(), "01: 25.m3u");
  EXPECT_EQ(captions.back(), "20: 6.m3u");
}

}  // namespace
}  // namespace qublet
