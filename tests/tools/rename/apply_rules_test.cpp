#include "tools/rename/apply_rules.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "support/tag_bytes.h"
#include "support/temporary_drives.h"
#include "support/vorbis_bytes.h"

namespace qublet {
namespace {

class ApplyRulesTest : public testing::Test {
 protected:
  ApplyRulesTest() {
    config_.Capitalise = config_.Extension = false;
    ClearSlot(config_, 0);
  }
  std::string Try(const std::string& path, int index = 8, int total = 10) const {
    return ApplyRenameRules(*files_, config_, path, static_cast<std::int16_t>(index),
                            static_cast<std::int16_t>(total), false);
  }
  std::string Rename(const std::string& path) const { return ApplyRenameRules(*files_, config_, path, 8, 10, true); }
  bool IsThere(const std::string& name) const {
    return std::filesystem::exists(drives_.C() / TemporaryDrives::PathOf(name));
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  RenameConfig config_;
};

TEST_F(ApplyRulesTest, TurnsTheSampleIntoAProperName) {
  config_ = {};
  EXPECT_EQ(Try("SAmPle File_naMe.MP3"), "Sample File Name.mp3");
}

TEST_F(ApplyRulesTest, TakesTheLastFourCharactersForTheExtension) {
  config_.Extension = true;
  EXPECT_EQ(Try("c:\\x.JPEG"), "c:\\x.jpeg");
  config_.LowFilename = true;
  config_.Extension = false;
  EXPECT_EQ(Try("c:\\X.JPEG"), "c:\\x.JPEG");
  EXPECT_EQ(Try("c:\\AÄÖÜ字"), "c:\\aÄÖÜ字");
}

TEST_F(ApplyRulesTest, LeavesANameOfFourCharactersOrFewer) {
  config_.Extension = true;
  EXPECT_EQ(Try("c:\\.MP3"), "c:\\.MP3");
  EXPECT_EQ(Try("c:\\AB"), "c:\\AB");
  config_.Increment = true;
  EXPECT_EQ(Try("c:\\AB"), "c:\\08ab");
}

TEST_F(ApplyRulesTest, RemovesTheExtensionWhereverItStandsInTheName) {
  EXPECT_EQ(Try("c:\\a.mp3b.mp3"), "c:\\ab.mp3");
  EXPECT_EQ(Try("c:\\a.mp3.mp3"), "c:\\a.mp3");
}

TEST_F(ApplyRulesTest, TakesTheNameOutOfTheFolderToo) {
  EXPECT_EQ(Try("c:\\1.mp3 rips\\1.mp3"), "c:\\ rips\\1.mp3");
}

TEST_F(ApplyRulesTest, LowersTheExtensionAlone) {
  config_.Extension = true;
  EXPECT_EQ(Try("c:\\DIR\\NAME.MP3"), "c:\\DIR\\NAME.mp3");
}

TEST_F(ApplyRulesTest, TakesTheNameFromTheTagsOfAnMp3) {
  drives_.Write("a.MP3", TagBytes(3, TextFrameBytes(3, "TIT2", "A/Title") + TextFrameBytes(3, "TPE1", "Artist")) +
                             AudioBytes());
  config_.RenID3 = true;
  EXPECT_EQ(Try("c:\\a.MP3"), "c:\\Artist - A Title.MP3");
  EXPECT_EQ(Rename("c:\\a.MP3"), "c:\\Artist - A Title.MP3");
  EXPECT_TRUE(IsThere("Artist - A Title.MP3"));
}

TEST_F(ApplyRulesTest, TakesTheNameFromTheCommentsOfAnOgg) {
  drives_.Write("a.ogg", VorbisFile({"TITLE=Title", "ARTIST=Artist"}));
  config_.RenID3 = true;
  EXPECT_EQ(Try("c:\\a.ogg"), "c:\\Artist - Title.ogg");
}

TEST_F(ApplyRulesTest, KeepsTheNameOfAFileWithoutTags) {
  drives_.Write("a.mp3", AudioBytes());
  drives_.Write("a.wav", TagBytes(3, TextFrameBytes(3, "TIT2", "Title")));
  config_.RenID3 = true;
  EXPECT_EQ(Try("c:\\a.mp3"), "c:\\a.mp3");
  EXPECT_EQ(Try("c:\\a.wav"), "c:\\a.wav");
  EXPECT_EQ(Try("c:\\gone.ogg"), "c:\\gone.ogg");
}

TEST_F(ApplyRulesTest, AppliesTheRulesToTheNameFromTheTags) {
  drives_.Write("a.mp3", TagBytes(3, TextFrameBytes(3, "TPE1", "Artist")) + AudioBytes());
  config_.RenID3 = true;
  PutRule(config_, 0, {"Art", "Pian"}, true);
  EXPECT_EQ(Try("c:\\a.mp3"), "c:\\Pianist.mp3");
}

TEST_F(ApplyRulesTest, ReplacesEveryOccurrenceLetterForLetter) {
  PutRule(config_, 0, {"a", "xy"}, true);
  EXPECT_EQ(Try("c:\\aAa\\bAnana.mp3"), "c:\\aAa\\bAnxynxy.mp3");
  PutRule(config_, 0, {"mp3", ""}, true);
  EXPECT_EQ(Try("c:\\MP3mp3x.wav"), "c:\\MP3x.wav");
}

TEST_F(ApplyRulesTest, AppendsTheTextOfARuleThatLooksForNothing) {
  PutRule(config_, 0, {"", " (live)"}, true);
  EXPECT_EQ(Try("c:\\song.mp3"), "c:\\song (live).mp3");
}

TEST_F(ApplyRulesTest, RunsTheActiveRulesFromTheFirstSlotToTheLast) {
  PutRule(config_, 0, {"a", "b"}, true);
  PutRule(config_, 1, {"b", "c"}, false);
  PutRule(config_, 7, {"b", "d"}, true);
  PutRule(config_, 20, {"", "!"}, true);
  EXPECT_EQ(Try("c:\\ab.mp3"), "c:\\dd!.mp3");
}

TEST_F(ApplyRulesTest, RemovesTheDigitsZeroToNine) {
  config_.RemNumbers = true;
  EXPECT_EQ(Try("c:\\0a1b2½٣c9.mp3"), "c:\\ab½٣c.mp3");
}

TEST_F(ApplyRulesTest, CapitalisesWords) {
  config_.Capitalise = true;
  EXPECT_EQ(Try("c:\\dON'T stop_me-now 2nd (live).mp3"), "c:\\Don't Stop_Me-Now 2nd (Live).mp3");
}

TEST_F(ApplyRulesTest, LowersTheNameAfterCapitalising) {
  config_.Capitalise = config_.LowFilename = true;
  EXPECT_EQ(Try("c:\\A SONG.MP3"), "c:\\a song.MP3");
}

TEST_F(ApplyRulesTest, NumbersAtTheStartOrTheEnd) {
  config_.Increment = true;
  EXPECT_EQ(Try("c:\\Song.mp3", 3, 120), "c:\\003 - Song.mp3");
  config_.IncPos = false;
  EXPECT_EQ(Try("c:\\Song.mp3", 3, 120), "c:\\Song - 003.mp3");
  EXPECT_EQ(Try("c:\\Song.mp3", 3, 9), "c:\\Song - 3.mp3");
  EXPECT_EQ(Try("c:\\Song.mp3", 120, 9), "c:\\Song - 120.mp3");
  EXPECT_EQ(Try("c:\\Song.mp3", -5, 0), "c:\\Song - -5.mp3");
}

TEST_F(ApplyRulesTest, GivesTheNumberAloneWhereNoNameIsLeft) {
  PutRule(config_, 0, {"ab", ""}, true);
  EXPECT_EQ(Try("c:\\ab.mp3"), "c:\\ab.mp3");
  config_.Increment = true;
  EXPECT_EQ(Try("c:\\ab.mp3"), "c:\\08.mp3");
}

TEST_F(ApplyRulesTest, CutsTheNameBehindTheNumber) {
  config_.Increment = config_.Truncat = true;
  config_.IncPos = false;
  config_.Truncval = 8;
  EXPECT_EQ(Try("c:\\Song.mp3"), "c:\\Song - 0.mp3");
  config_.Truncval = 3;
  EXPECT_EQ(Try("c:\\äöüß.mp3"), "c:\\äöü.mp3");
}

TEST_F(ApplyRulesTest, TrimsBlanksAfterTheCut) {
  config_.Truncat = true;
  config_.Truncval = 4;
  EXPECT_EQ(Try("c:\\ ab cd.mp3"), "c:\\ab.mp3");
  EXPECT_EQ(Try("c:\\a\tb\t.mp3"), "c:\\a\tb\t.mp3");
}

TEST_F(ApplyRulesTest, LeavesTheFileAloneWhenNoNameIsLeft) {
  drives_.Write("ab.MP3", "song");
  config_.Extension = config_.Truncat = true;
  config_.Truncval = 0;
  EXPECT_EQ(Rename("c:\\ab.MP3"), "c:\\ab.MP3");
  EXPECT_EQ(drives_.Read("ab.MP3"), "song");
}

TEST_F(ApplyRulesTest, GivesUpOnALimitBelowZero) {
  drives_.Write("ab.mp3", "song");
  PutRule(config_, 0, {"a", "c"}, true);
  config_.Truncat = true;
  config_.Truncval = -1;
  EXPECT_EQ(Try("c:\\ab.mp3"), "c:\\ab.mp3");
  EXPECT_EQ(Rename("c:\\ab.mp3"), "c:\\ab.mp3");
  EXPECT_TRUE(IsThere("ab.mp3"));
}

TEST_F(ApplyRulesTest, RenamesTheFile) {
  config_ = {};
  drives_.Write("Mix/a_song.MP3", "song");
  EXPECT_EQ(Rename("c:\\Mix\\a_song.MP3"), "c:\\Mix\\A Song.mp3");
  EXPECT_EQ(drives_.Read("Mix/A Song.mp3"), "song");
  EXPECT_FALSE(IsThere("Mix/a_song.MP3"));
}

TEST_F(ApplyRulesTest, RenamesNothingWhenItIsToTry) {
  config_ = {};
  drives_.Write("a_song.mp3", "song");
  EXPECT_EQ(Try("c:\\a_song.mp3"), "c:\\A Song.mp3");
  EXPECT_TRUE(IsThere("a_song.mp3"));
}

TEST_F(ApplyRulesTest, RenamesNoFolder) {
  drives_.Write("m/x.mp3/x.mp3", "abc");
  config_.Capitalise = true;
  const std::string row = "c:\\m\\\\x.mp3";  // what the list makes of it
  EXPECT_EQ(Rename(row), row);
  EXPECT_TRUE(IsThere("m/x.mp3/x.mp3"));
  EXPECT_EQ(Rename("c:\\m\\x.mp3"), "c:\\m\\x.mp3");
}

TEST_F(ApplyRulesTest, NeverReplacesAFile) {
  drives_.Write("a.mp3", "first");
  drives_.Write("b.mp3", "second");
  PutRule(config_, 0, {"a", "b"}, true);
  EXPECT_EQ(Rename("c:\\a.mp3"), "c:\\a.mp3");
  EXPECT_EQ(drives_.Read("a.mp3"), "first");
  EXPECT_EQ(drives_.Read("b.mp3"), "second");
}

TEST_F(ApplyRulesTest, ChangesTheCaseOfANameAlone) {
  drives_.Write("song.mp3", "song");
  config_.Capitalise = true;
  EXPECT_EQ(Rename("c:\\song.mp3"), "c:\\Song.mp3");
  std::string name;
  for (const FolderEntry& entry : files_->ReadFolder("c:\\")) name += entry.name;
  EXPECT_EQ(name, "Song.mp3");
}

TEST_F(ApplyRulesTest, GivesTheOldPathOfAFileThatIsGone) {
  PutRule(config_, 0, {"g", "b"}, true);
  EXPECT_EQ(Rename("c:\\gone.mp3"), "c:\\gone.mp3");
}

TEST_F(ApplyRulesTest, NeverTakesASlashForTheEndOfAFolder) {
  drives_.Write("ACxDC.mp3", "song");
  std::filesystem::create_directory(drives_.C() / "AC");
  PutRule(config_, 0, {"x", "/"}, true);
  EXPECT_EQ(Try("c:\\ACxDC.mp3"), "c:\\AC/DC.mp3");
  EXPECT_EQ(Rename("c:\\ACxDC.mp3"), "c:\\ACxDC.mp3");
  EXPECT_EQ(drives_.Read("ACxDC.mp3"), "song");
}

TEST_F(ApplyRulesTest, MovesAFileWhoseNewNameNamesAFolder) {
  drives_.Write("ACxDC.mp3", "song");
  PutRule(config_, 0, {"x", "\\"}, true);
  EXPECT_EQ(Rename("c:\\ACxDC.mp3"), "c:\\ACxDC.mp3") << "there is no such folder";
  std::filesystem::create_directory(drives_.C() / "AC");
  EXPECT_EQ(Rename("c:\\ACxDC.mp3"), "c:\\AC\\DC.mp3");
  EXPECT_EQ(drives_.Read("AC/DC.mp3"), "song");
}

TEST_F(ApplyRulesTest, RefusesANameWithAZeroCharacter) {
  drives_.Write("axb.mp3", "song");
  PutRule(config_, 0, {"x", std::string(1, '\0')}, true);
  EXPECT_EQ(Rename("c:\\axb.mp3"), "c:\\axb.mp3");
  EXPECT_EQ(drives_.Read("axb.mp3"), "song");
}

TEST_F(ApplyRulesTest, KeepsEveryLegalCharacter) {
  const std::string odd = "ä字'&%#+~[](){};,=@ !$ émoji😀";
  drives_.Write(odd + "_.mp3", "song");
  PutRule(config_, 0, {"_", "-"}, true);
  EXPECT_EQ(Rename("c:\\" + odd + "_.mp3"), "c:\\" + odd + "-.mp3");
  EXPECT_EQ(drives_.Read(odd + "-.mp3"), "song");
}

TEST_F(ApplyRulesTest, GivesUpOnRulesThatFeedEachOther) {
  drives_.Write("a.mp3", "song");
  for (std::size_t slot = 0; slot < kRuleSlots; ++slot) PutRule(config_, slot, {"a", std::string(99, 'a')}, true);
  config_.Truncat = true;
  EXPECT_EQ(Try("c:\\a.mp3"), "c:\\a.mp3");
  EXPECT_EQ(Rename("c:\\a.mp3"), "c:\\a.mp3");
}

TEST_F(ApplyRulesTest, RenamesToTheLongestNameAndNotBeyond) {
  drives_.Write("a.mp3", "song");
  PutRule(config_, 0, {"a", std::string(99, 'x')}, true);
  PutRule(config_, 1, {"", std::string(99, 'y')}, true);
  PutRule(config_, 2, {"", std::string(53, 'z')}, true);
  const std::string longest = std::string(99, 'x') + std::string(99, 'y') + std::string(53, 'z') + ".mp3";
  PutRule(config_, 3, {"", "1"}, true);
  EXPECT_EQ(Rename("c:\\a.mp3"), "c:\\a.mp3") << "256 bytes";
  config_.RuleActive[3] = false;
  EXPECT_EQ(Rename("c:\\a.mp3"), "c:\\" + longest);
  EXPECT_EQ(drives_.Read(longest), "song");
}

}  // namespace
}  // namespace qublet
