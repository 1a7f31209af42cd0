#include <gtest/gtest.h>

#include "platform/program.h"
#include "support/cli_test_base.h"
#include "support/tag_bytes.h"
#include "tools/rename/rename_settings.h"

namespace qublet {
namespace {

class RenameCommandTest : public CliTestBase {
 protected:
  int Run(const Arguments& arguments) { return CliTestBase::Run("rename", arguments); }
  std::string Try(Arguments arguments) {
    arguments.insert(arguments.end(), {"--try", "SAmPle File_naMe.MP3"});
    EXPECT_EQ(Run(arguments), 0) << Err();
    return Out();
  }
  int Wrong(const Arguments& arguments) {
    const int code = Run(arguments);
    EXPECT_TRUE(Err().starts_with("qublet: rename: ")) << Err();
    return code;
  }
  bool IsThere(const std::string& name) const {
    return std::filesystem::exists(drives_.C() / TemporaryDrives::PathOf(name));
  }
};

constexpr int kWrong = 2;

TEST_F(RenameCommandTest, RenamesFilesByTheDefaults) {
  Touch({"a_song.MP3", "Other.mp3"});
  EXPECT_EQ(Run({"c:\\a_song.MP3", "c:\\Other.mp3"}), 0);
  EXPECT_EQ(Out(), "c:\\a_song.MP3\tc:\\A Song.mp3\nc:\\Other.mp3\tc:\\Other.mp3\n");
  EXPECT_EQ(Err(), "");
  EXPECT_TRUE(IsThere("A Song.mp3"));
}

TEST_F(RenameCommandTest, PrintsOneJsonObjectARow) {
  Touch({"a_b.mp3", "a b.mp3", "other.mp3"});
  EXPECT_EQ(Run({"--json", "--set", "Capitalise=0", "c:\\a_b.mp3", "c:\\other.mp3"}), 1);
  EXPECT_EQ(Out(),
            "{\"old\": \"c:\\\\a_b.mp3\", \"new\": \"c:\\\\a_b.mp3\", \"reason\": \"there is a file of this name "
            "already\"}\n{\"old\": \"c:\\\\other.mp3\", \"new\": \"c:\\\\other.mp3\"}\n");
  EXPECT_EQ(Err(), "qublet: c:\\a_b.mp3: there is a file of this name already\n");
}

TEST_F(RenameCommandTest, TakesTheRowsOfFoldersAndPlaylists) {
  Touch({"Mix/b_1.mp3", "Mix/Sub/b_2.mp3", "a_1.mp3"});
  drives_.Write("list.m3u", "a_1.mp3\r\ngone_1.mp3\r\n");
  EXPECT_EQ(Run({"c:\\list.m3u", "c:\\Mix"}), 1);
  EXPECT_EQ(Out(),
            "c:\\a_1.mp3\tc:\\A 1.mp3\nc:\\gone_1.mp3\tc:\\gone_1.mp3\nc:\\Mix\\b_1.mp3\tc:\\Mix\\B 1.mp3\n"
            "c:\\Mix\\Sub\\b_2.mp3\tc:\\Mix\\Sub\\B 2.mp3\n");
  EXPECT_EQ(Err(), "qublet: c:\\gone_1.mp3: no such file or folder\n");
  EXPECT_EQ(drives_.Read("list.m3u"), "a_1.mp3\r\ngone_1.mp3\r\n");
}

TEST_F(RenameCommandTest, NamesAMissingFileThatWouldKeepItsName) {
  drives_.Write("list.m3u", "Gone.mp3\r\n");
  EXPECT_EQ(Run({"c:\\list.m3u"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\Gone.mp3: no such file or folder\n");
  EXPECT_EQ(Run({"c:\\nowhere.mp3"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\nowhere.mp3: no such file or folder\n");
}

TEST_F(RenameCommandTest, ADryRunPrintsTheSameAndRenamesNothing) {
  Touch({"a_b.mp3", "a b.mp3", "c_d.mp3", "e_f.mp3"});
  drives_.Write("list.m3u", "a_b.mp3\r\na b.mp3\r\nc_d.mp3\r\ngone_.mp3\r\ne_f.mp3\r\ne_f.mp3\r\n");
  const Arguments arguments{"--set", "Capitalise=0", "--rule", "_", " ", "--rule", "c", "/", "c:\\list.m3u"};
  Arguments dry = arguments;
  dry.insert(dry.begin(), "--dry-run");
  EXPECT_EQ(Run(dry), 1);
  const std::string out = Out();
  const std::string err = Err();
  EXPECT_TRUE(IsThere("e_f.mp3"));
  EXPECT_EQ(Run({"--history"}), 0);
  EXPECT_EQ(Out(), "");
  EXPECT_EQ(Run(arguments), 1);
  EXPECT_EQ(Out(), out);
  EXPECT_EQ(Err(), err);
  EXPECT_EQ(err,
            "qublet: c:\\a_b.mp3: there is a file of this name already\n"
            "qublet: c:\\c_d.mp3: the name holds a forbidden character\n"
            "qublet: c:\\gone_.mp3: no such file or folder\nqublet: c:\\e_f.mp3: no such file or folder\n");
  EXPECT_TRUE(IsThere("e f.mp3"));
}

TEST_F(RenameCommandTest, NumbersByFolderUnlessToldOtherwise) {
  Touch({"1/a.mp3", "2/b.mp3"});
  EXPECT_EQ(Run({"--dry-run", "--set", "Increment=1", "c:\\1", "c:\\2"}), 0);
  EXPECT_EQ(Out(), "c:\\1\\a.mp3\tc:\\1\\1 - A.mp3\nc:\\2\\b.mp3\tc:\\2\\1 - B.mp3\n");
  const std::string by_folder = Out();
  EXPECT_EQ(Run({"--dry-run", "--reset-per-folder", "--set", "Increment=1", "c:\\1", "c:\\2"}), 0);
  EXPECT_EQ(Out(), by_folder);
  EXPECT_EQ(Run({"--no-reset", "--set", "Increment=1", "c:\\1", "c:\\2"}), 0);
  EXPECT_EQ(Out(), "c:\\1\\a.mp3\tc:\\1\\1 - A.mp3\nc:\\2\\b.mp3\tc:\\2\\2 - B.mp3\n");
  EXPECT_TRUE(IsThere("2/2 - B.mp3"));
}

TEST_F(RenameCommandTest, TakesNamesFromTags) {
  drives_.Write("a.mp3", TagBytes(3, TextFrameBytes(3, "TIT2", "title")) + AudioBytes(20));
  EXPECT_EQ(Run({"--set", "RenID3=1", "c:\\a.mp3"}), 0);
  EXPECT_EQ(Out(), "c:\\a.mp3\tc:\\Unknown Artist - Title.mp3\n");
}

TEST_F(RenameCommandTest, TriesTheRules) {
  EXPECT_EQ(Try({}), "Sample File Name.mp3\n");
  EXPECT_EQ(Try({"--set", "Increment=1"}), "08 - Sample File Name.mp3\n");
  EXPECT_EQ(Try({"--set", "Increment=1", "--set", "IncPos=0", "--index", "3", "--total", "120"}),
            "Sample File Name - 003.mp3\n");
  EXPECT_EQ(Try({"--set", "Increment=1", "--index", "-3", "--total", "0"}), "-3 - Sample File Name.mp3\n");
  EXPECT_EQ(Try({"--set", "Truncat=1", "--set", "Truncval=3"}), "Sam.mp3\n");
  EXPECT_EQ(Try({"--set", "Truncat=1", "--set", "Truncval=-1"}), "SAmPle File_naMe.MP3\n");
  EXPECT_EQ(Try({"--set", "LowFilename=1", "--set", "Extension=0"}), "sample file name.MP3\n");
}

TEST_F(RenameCommandTest, NeverMakesAPathOfTheTextToTry) {
  EXPECT_EQ(Run({"--try", "AC/DC_x.MP3", "--set", "Capitalise=0"}), 0);
  EXPECT_EQ(Out(), "AC/DC x.mp3\n");
  EXPECT_EQ(Run({"--try", "--dry-run_.mp3"}), 0);
  EXPECT_EQ(Out(), "--Dry-Run.mp3\n");
  EXPECT_EQ(Run({"--try", ""}), 0);
  EXPECT_EQ(Out(), "\n");
}

TEST_F(RenameCommandTest, RulesTakeThePlaceOfAllSlots) {
  EXPECT_EQ(Try({"--no-rules"}), "Sample File_Name.mp3\n");
  EXPECT_EQ(Try({"--rule", "File", "Song"}), "Sample Song_Name.mp3\n") << "the default rule is gone";
  EXPECT_EQ(Try({"--rule", "_", "", "--no-rules", "--rule", "", "!"}), "Sample Filename!.mp3\n");
  EXPECT_EQ(Try({"--rule", "File", "--json", "--rule", "--json", "-x"}), "Sample -X_Name.mp3\n");
}

TEST_F(RenameCommandTest, SavesAndTakesRules) {
  EXPECT_EQ(Run({"--save-rules", "c:\\my.rps", "--rule", "_", "-", "--set", "Capitalise=0"}), 0);
  EXPECT_EQ(drives_.Read("my.rps").size(), kRenameRecordSize);
  EXPECT_EQ(Try({"--rules", "c:\\my.rps"}), "SAmPle File-naMe.mp3\n");
  EXPECT_EQ(Try({"--set", "LowFilename=1", "--rules", "c:\\my.rps"}), "sample file-name.mp3\n");
  EXPECT_EQ(Try({"--rules", "c:\\my.rps", "--no-rules"}), "SAmPle File_naMe.mp3\n");
}

TEST_F(RenameCommandTest, ReplacesKeptRulesOnlyWhenToldSo) {
  drives_.Write("my.rps", "old");
  EXPECT_EQ(Run({"--save-rules", "c:\\my.rps"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\my.rps: it exists; --replace replaces it\n");
  EXPECT_EQ(drives_.Read("my.rps"), "old");
  EXPECT_EQ(Run({"--replace", "--save-rules", "c:\\my.rps"}), 0);
  EXPECT_EQ(drives_.Read("my.rps").size(), kRenameRecordSize);
  EXPECT_EQ(Run({"--save-rules", "c:\\no folder\\my.rps"}), 1);
}

TEST_F(RenameCommandTest, RefusesRulesThatItCannotTake) {
  Touch({"a_b.mp3"});
  RenameConfig config;
  config.Version = "20";
  drives_.Write("old.rps", RenameRecord(config));
  EXPECT_EQ(Run({"--rules", "c:\\old.rps", "c:\\a_b.mp3"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\old.rps: of another version of this program\n");
  EXPECT_EQ(Run({"--rules", "c:\\gone.rps", "c:\\a_b.mp3"}), 1);
  EXPECT_TRUE(IsThere("a_b.mp3"));
  EXPECT_EQ(Out(), "");
}

TEST_F(RenameCommandTest, KnowsWrongUse) {
  Touch({"a_b.mp3"});
  const std::string path = "c:\\a_b.mp3";
  const std::string longest(99, 'x');
  EXPECT_EQ(Run({"--rule", longest, "", "--dry-run", path}), 0);
  for (const Arguments& arguments : std::vector<Arguments>{{},
                                                           {"--rule", "a", "a", path},
                                                           {"--rule", "", "", path},
                                                           {"--rule", "a", "a\xC2\x8F", path},
                                                           {"--rule", longest + "x", "", path},
                                                           {"--rule", "", longest + "é", path},
                                                           {"--rule", "a"},
                                                           {"--set", "Version=1", path},
                                                           {"--set", "capitalise=1", path},
                                                           {"--set", "Capitalise=2", path},
                                                           {"--set", "Capitalise=", path},
                                                           {"--set", "Capitalise", path},
                                                           {"--set", "Truncval=", path},
                                                           {"--set", "Truncval=2147483648", path},
                                                           {"--set", "Truncval=8x", path},
                                                           {"--set"},
                                                           {"--unknown", path},
                                                           {"--reset-per-folder", "--no-reset", path},
                                                           {"--try", "a", path},
                                                           {"--try"},
                                                           {"--try", "a", "--index", "32768"},
                                                           {"--index", "3", path},
                                                           {"--try", "a", "--dry-run"},
                                                           {"--replace", path},
                                                           {"--save-rules", "c:\\a.rps", path},
                                                           {"--save-rules", "c:\\a.rps", "--try", "a"},
                                                           {"--undo", "x"},
                                                           {"--undo", "1", path},
                                                           {"--history", path},
                                                           {"--history", "--no-rules"}})
    EXPECT_EQ(Wrong(arguments), kWrong) << testing::PrintToString(arguments);
  EXPECT_TRUE(IsThere("a_b.mp3"));
  EXPECT_FALSE(IsThere("a.rps"));
}

TEST_F(RenameCommandTest, HasRoomForTwentyOneRules) {
  Arguments arguments{"--set", "Capitalise=0", "--try", "name.mp3"};
  for (int i = 0; i < 21; ++i) arguments.insert(arguments.end(), {"--rule", "", std::to_string(i % 10)});
  EXPECT_EQ(Run(arguments), 0);
  EXPECT_EQ(Out(), "name012345678901234567890.mp3\n");
  arguments.insert(arguments.end(), {"--rule", "", "x"});
  EXPECT_EQ(Wrong(arguments), kWrong);
}

TEST_F(RenameCommandTest, TakesAFileThatLooksLikeAnOption) {
  Touch({"--a_b.mp3"});
  EXPECT_EQ(Run({"--dry-run", "--", "--a_b.mp3"}), 0);
  EXPECT_EQ(Out(), "c:\\--a_b.mp3\tc:\\--A B.mp3\n");
}

TEST_F(RenameCommandTest, TakesTheNewestRunBack) {
  Touch({"a_1.mp3", "b_1.mp3"});
  ASSERT_EQ(Run({"c:\\a_1.mp3"}), 0);
  ASSERT_EQ(Run({"c:\\b_1.mp3"}), 0);
  EXPECT_EQ(Run({"--history"}), 0);
  const std::size_t tab = Out().find('\t');
  EXPECT_EQ(Out().substr(0, tab), "2");
  EXPECT_TRUE(Out().ends_with("\t1\n"));
  EXPECT_EQ(std::ranges::count(Out(), '\n'), 2);
  EXPECT_EQ(Run({"--undo"}), 0);
  EXPECT_EQ(Out(), "c:\\B 1.mp3\tc:\\b_1.mp3\n");
  EXPECT_TRUE(IsThere("b_1.mp3"));
  EXPECT_EQ(Run({"--undo", "1"}), 0);
  EXPECT_TRUE(IsThere("a_1.mp3"));
  EXPECT_EQ(Run({"--undo"}), 1);
  EXPECT_EQ(Err(), "qublet: rename: no run can be undone\n");
  EXPECT_EQ(Run({"--undo", "9"}), 1);
  EXPECT_EQ(Err(), "qublet: rename: no such run: 9\n");
}

TEST_F(RenameCommandTest, NamesWhatCannotBeTakenBack) {
  Touch({"a_1.mp3", "a_2.mp3"});
  ASSERT_EQ(Run({"c:\\a_1.mp3", "c:\\a_2.mp3"}), 0);
  Touch({"a_1.mp3"});
  EXPECT_EQ(Run({"--undo"}), 1);
  EXPECT_EQ(Out(), "c:\\A 2.mp3\tc:\\a_2.mp3\n");
  EXPECT_EQ(Err(), "qublet: c:\\A 1.mp3: there is a file of this name already\n");
  std::filesystem::remove(drives_.C() / "a_1.mp3");
  EXPECT_EQ(Run({"--undo"}), 0);
  EXPECT_EQ(Out(), "c:\\A 1.mp3\tc:\\a_1.mp3\n");
}

TEST_F(RenameCommandTest, ARunThatChangesNothingIsNotKept) {
  Touch({"Song.mp3"});
  ASSERT_EQ(Run({"c:\\Song.mp3"}), 0);
  EXPECT_EQ(Run({"--history"}), 0);
  EXPECT_EQ(Out(), "");
}

TEST_F(RenameCommandTest, SaysThatARunCannotBeKeptAndGoesOn) {
  Touch({"a_1.mp3"});
  TemporaryDrives::WriteAt(TemporaryDrives::PathOf(files_->ToNative(OwnFolderOfUser(*files_))) / "rename-runs", "");
  EXPECT_EQ(Run({"c:\\a_1.mp3"}), 0);
  EXPECT_TRUE(Err().starts_with("qublet: rename: this run can't be undone: ")) << Err();
  EXPECT_TRUE(IsThere("A 1.mp3"));
}

}  // namespace
}  // namespace qublet
