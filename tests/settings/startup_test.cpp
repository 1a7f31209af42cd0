#include "settings/startup.h"

#include <gtest/gtest.h>

#include "support/fake_startup_entries.h"

namespace qublet {
namespace {

TEST(AddToStartup, NamesTheEntryLikeTheFileLessFourCharacters) {
  FakeStartupEntries entries;
  AddToStartup(entries, "z:\\opt\\velmora\\last.m3u");
  AddToStartup(entries, "c:\\m\xC3\xBCsik\xC3\xA9.\xC3\xA9\xC3\xA9\xC3\xA9");
  const std::map<std::string, std::string> expected = {
      {"last", "z:\\opt\\velmora\\last.m3u"},
      {"m\xC3\xBCsik\xC3\xA9", "c:\\m\xC3\xBCsik\xC3\xA9.\xC3\xA9\xC3\xA9\xC3\xA9"}};
  EXPECT_EQ(entries.paths, expected);
}

TEST(AddToStartup, TakesANameOfFewerCharactersAsEmpty) {
  FakeStartupEntries entries;
  AddToStartup(entries, "c:\\m3u");
  EXPECT_EQ(entries.paths.begin()->first, "");
}

TEST(RemoveFromStartup, RemovesTheEntryOfThatName) {
  FakeStartupEntries entries;
  AddToStartup(entries, "c:\\last.m3u");
  RemoveFromStartup(entries, "d:\\elsewhere\\last.m3u");
  EXPECT_TRUE(entries.paths.empty());
}

TEST(Startup, SaysNothingWithoutTheRights) {
  FakeStartupEntries entries;
  entries.refuses = true;
  EXPECT_NO_THROW(AddToStartup(entries, "c:\\last.m3u"));
  EXPECT_NO_THROW(RemoveFromStartup(entries, "c:\\last.m3u"));
}

}  // namespace
}  // namespace qublet
