#include <atomic>

#include "platform/failure.h"
#include "platform/forwarding_file_system.h"
#include "support/counted_listings.h"
#include "support/report_test_base.h"

namespace qublet {
namespace {

using Texts = std::vector<std::string>;

class ReportEngine : public ReportTestBase {};

TEST(PadColumn, EndsEachCellWithABlank) {
  for (const auto& [value, cell] : {std::pair{"abc", "abc "}, {"abcd", "abc "}, {"ab", "ab  "}, {"", "    "}}) {
    std::int16_t width = 4;
    EXPECT_EQ(PadColumn(value, width), cell);
    EXPECT_EQ(width, 3);
  }
}

TEST(PadColumn, CountsCharacters) {
  std::int16_t width = 4;
  EXPECT_EQ(PadColumn("\u00E9\u00E9\u00E9\u00E9", width), "\u00E9\u00E9\u00E9 ");
}

TEST(PadColumn, HasNoRoomInNoWidth) {
  std::int16_t width = 0;
  EXPECT_THROW(PadColumn("Link", width), Failure);
  EXPECT_EQ(width, -1);
}

TEST(RepeatText, RepeatsIt) {
  EXPECT_EQ(RepeatText(3, "ab"), "ababab");
  EXPECT_EQ(RepeatText(0, "ab"), "");
}

TEST_F(ReportEngine, DropsThePlaceholdersFromTheSettingsToo) {
  settings_.Title = " Report Title ";
  settings_.Description = " Report Description";
  Report({"c:\\music\\y.wma"});
  EXPECT_EQ(settings_.Title, "");
  EXPECT_EQ(settings_.Description, "");
  settings_.Title = " report title ";
  Report({"c:\\music\\y.wma"});
  EXPECT_EQ(settings_.Title, "report title");
}

TEST_F(ReportEngine, ShowsEveryFactOfAnMp3) {
  Select({3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20});
  EXPECT_EQ(Rows({"c:\\music\\my.song.mp3"}),
            Texts{"0:03|41 Kb|1.0|III|128|44100 Hz|Joint Stereo|No|None|No|T1|A1|B1|1999|T2|A2|B2|2001|"});
}

TEST_F(ReportEngine, ShowsTheSampleWidthOfAWavAsItsLayer) {
  drives_.Write("mono.wav", Wav(7, 1, 8000, 8, 16'000));
  drives_.Write("many.wav", Wav(1, 6, 48000, 24, 864'000));
  Select({3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 20});
  EXPECT_EQ(Rows({"c:\\mono.wav", "c:\\many.wav"}),
            (Texts{"0:02|16,000 Bytes|-|8 bps|64|8000 Hz|Mono|No|None|No|-|-|",
                   "0:01|844 Kb|PCM|24 bps|6912|48000 Hz||No|None|No|-|-|"}));
}

TEST_F(ReportEngine, KeepsTheLengthBeforeWhereOneCanNotBeWorkedOut) {
  drives_.Write("zero.wav", Wav(1, 2, 0, 16, 1000));
  drives_.Write("huge.wav", Wav(1, 32767, 2'000'000'000, 32767, 1000));
  Select({1, 3, 7});
  EXPECT_EQ(Rows({"c:\\zero.wav", "c:\\music\\my.song.mp3", "c:\\zero.wav", "c:\\huge.wav"}),
            (Texts{"Zero|0:00||", "My.Song|0:03|128|", "Zero|0:03||", "Huge|0:03||"}));
}

TEST_F(ReportEngine, WorksOutTheLengthOfAVaryingRateFromTheFile) {
  Bytes bytes = VaryingRate();
  bytes.resize(130'560);  // ten seconds of 102 times 1024 bit
  drives_.Write("v.mp3", TextOf(bytes));
  Select({3, 7});
  EXPECT_EQ(Rows({"c:\\v.mp3"}), Texts{"0:10|102 Kbit (VBR)|"});
}

TEST_F(ReportEngine, ReadsAnOggOnlyForColumnsOfId3v1) {
  Select({5, 1, 4});
  EXPECT_EQ(Rows({"c:\\music\\x.ogg"}), Texts{"|X|5,000 Bytes|"});
  Select({5, 13, 14, 15, 16});
  EXPECT_EQ(Rows({"c:\\music\\x.ogg"}), Texts{"OGG Vorbis|OT|OA|OB||"});
}

TEST_F(ReportEngine, HasEmptyFactsForAnMp3WithoutASound) {
  drives_.Write("no.mp3", "no sound");
  Select({3, 4, 5, 8, 10, 13, 17});
  EXPECT_EQ(Rows({"c:\\no.mp3"}), Texts{"0:00|8 Bytes||0 Hz|No|||"});
}

TEST_F(ReportEngine, DressesANameAndKeepsEachOtherDot) {
  Select({1});
  EXPECT_EQ(Rows({"c:\\my.song.mp3", "c:\\AB CD.MP3", "c:\\.mp3", "c:\\NO EXTENSION"}),
            (Texts{"My.Song|", "Ab Cd|", "|", "No Extension|"}));
}

TEST_F(ReportEngine, ShowsFoldersFromTheCommonOneOn) {
  Select({2});
  const Collection files = {"c:\\music\\y.wma", "c:\\music\\a b\\AB CD.MP3"};
  EXPECT_EQ(Rows(files), (Texts{".|", "a b|"}));
  settings_.SaveRel = false;
  EXPECT_EQ(Rows(files), (Texts{"c:\\music|", "c:\\music\\a b|"}));
  settings_.SaveRel = true;
  EXPECT_EQ(Rows({"c:\\music\\y.wma", "d:\\b.mp3"}), (Texts{"c:\\music|", "d:|"}));
}

// The links of a page.
Texts LinksIn(const std::string& page) {
  Texts links;
  for (std::size_t at = page.find("<a href="); at != std::string::npos; at = page.find("<a href=", at + 1))
    links.push_back(page.substr(at + 8, page.find('>', at + 8) - at - 8));
  return links;
}

TEST_F(ReportEngine, LinksFromTheCommonFolderOn) {
  EXPECT_EQ(LinksIn(Report({"c:\\music\\y.wma", "c:\\music\\a b\\AB CD.MP3", "c:\\music\\gone.mp3"})),
            (Texts{"y.wma", "a%20b/AB%20CD.MP3", ""}));
}

TEST_F(ReportEngine, LosesEveryBackslashOfALinkWhereThereIsNoCommonFolder) {
  drives_.Write("other/b.wma", "b");
  std::filesystem::rename(drives_.C() / "other", drives_.D() / "other");
  EXPECT_EQ(LinksIn(Report({"c:\\music\\y.wma", "d:\\other\\b.wma"})), (Texts{"c:musicy.wma", "d:otherb.wma"}));
}

#ifndef _WIN32
TEST_F(ReportEngine, LinksToNamesWithABackslashOfTheirOwn) {
  drives_.Write("music/b\\c:d/e\tf g.mp3", "e");
  const std::string odd = files_->FromNative((drives_.C() / "music/b\\c:d/e\tf g.mp3").string());
  EXPECT_EQ(LinksIn(Report({"c:\\music\\y.wma", odd})), (Texts{"y.wma", "b\\c:d/e\tf%20g.mp3"}));
}
#endif

// Paths that are native as they stand.
class SamePaths : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  std::string ToNative(const std::string& path) const override { return path; }
};

TEST_F(ReportEngine, LinksByTheAddressOfADrive) {
  const SamePaths same(*files_);
  settings_.SaveRel = false;
  GenerateReport({same, clock_, ","}, "c:\\out", {"c:\\music\\a b\\AB CD.MP3"}, settings_, [](int, int) {});
  EXPECT_EQ(LinksIn(drives_.Read("out")), Texts{"file:///c:/music/a%20b/AB%20CD.MP3"});
}

TEST_F(ReportEngine, LinksByTheAddressOfTheSystem) {
  settings_.SaveRel = false;
  const std::string native = files_->ToNative("c:\\music\\y.wma");
  // A system with drives of its own has them in its addresses.
  const std::string place = native.starts_with('/') ? native : "/c:/music/y.wma";
  EXPECT_EQ(LinksIn(Report({"c:\\music\\y.wma"})), Texts{"file://" + place});
}

TEST_F(ReportEngine, ColoursEverySecondRow) {
  Select({1});
  settings_.Summary = false;
  const std::string page = Report({"c:\\1", "c:\\2", "c:\\3"});
  EXPECT_LT(page.find("DDDDDD"), page.find("EEEEEE"));
  EXPECT_GT(page.rfind("DDDDDD"), page.find("EEEEEE"));
}

TEST_F(ReportEngine, PutsTheLinkHeaderOnlyIntoDelimitedText) {
  UsePlainText();
  settings_.ColumnHeaders = true;
  Select({1, 21});
  EXPECT_EQ(Report({"c:\\gone"}), "\r\nFileName|Link|\r\n\r\nGone|\r\n\r\n");
  settings_.SpaceAligned = true;
  const std::string rule(40, '-');
  const auto cell = [](std::string text) { return text + std::string(40 - text.size(), ' '); };
  EXPECT_EQ(Report({"c:\\gone"}),
            rule + "\r\n" + cell("FileName") + "\r\n" + rule + "\r\n" + cell("Gone") + "\r\n\r\n");
}

TEST_F(ReportEngine, TakesTheLastOfThreeDelimiters) {
  UsePlainText();
  Select({1});
  settings_.CommaDelimited = settings_.TabDelimited = true;
  settings_.Delimiter = "   ";
  EXPECT_EQ(Report({"c:\\gone"}), "\r\n\r\nGone\r\n\r\n");
  settings_.CustomDelimited = false;
  EXPECT_EQ(Report({"c:\\gone"}), "\r\n\r\nGone\t\r\n\r\n");
  settings_.TabDelimited = false;
  EXPECT_EQ(Report({"c:\\gone"}), "\r\n\r\nGone,\r\n\r\n");
}

std::string SummaryIn(const std::string& page) {
  const std::size_t end = page.find(" page created");
  const std::size_t start = page.rfind('>', page.find(" Items"));
  return page.substr(start + 1, end - start - 1);
}

TEST_F(ReportEngine, CountsTheSecondsOfAnMp3TwiceWhenAnotherKindFollows) {
  EXPECT_EQ(SummaryIn(Report({"c:\\music\\my.song.mp3", "c:\\music\\y.wma"})),
            "2 Items, Total Playing Time 0:06, [60 Kb]");
}

TEST_F(ReportEngine, MarksItsSumsWhereAFileIsMissing) {
  EXPECT_EQ(SummaryIn(Report({"c:\\music\\my.song.mp3", "c:\\gone.mp3"})),
            "2 Items, Total Playing Time >0:06, [>41 Kb]");
}

TEST_F(ReportEngine, MarksTheTimeAloneWhereAFileHasNone) {
  EXPECT_EQ(SummaryIn(Report({"c:\\music\\y.wma", "c:\\music\\my.song.mp3"})),
            "2 Items, Total Playing Time >0:03, [60 Kb]");
}

TEST_F(ReportEngine, SumsUpOnlyWhatItShows) {
  Select({1, 4});
  EXPECT_EQ(SummaryIn(Report({"c:\\music\\my.song.mp3"})), "1 Items, [41 Kb]");
  Select({1, 3});
  EXPECT_EQ(SummaryIn(Report({"c:\\music\\my.song.mp3"})), "1 Items, Total Playing Time 0:03");
}

TEST_F(ReportEngine, OfNoFilesHasHeadersAndASummary) {
  EXPECT_EQ(SummaryIn(Report({})), "0 Items");
  EXPECT_NE(drives_.Read("out").find("<b>FileName</b>"), std::string::npos);
}

TEST_F(ReportEngine, LeavesOutColumnsThatAreNone) {
  UsePlainText();
  Select({0, 22, 1, -1});
  EXPECT_EQ(Report({"c:\\gone"}), "\r\n\r\nGone|\r\n\r\n");
}

// A file whose length is as told.
class LongFiles : public ForwardingFileSystem {
 public:
  LongFiles(FileSystem& files, std::int64_t length) : ForwardingFileSystem(files), length_(length) {}
  std::int64_t FileLength(const std::string&) const override { return length_; }

 private:
  const std::int64_t length_;
};

TEST_F(ReportEngine, ShowsNoSizeThatIsTooLong) {
  Select({1, 4});
  const LongFiles files(*files_, 2'147'483'648);
  GenerateReport({files, clock_, ","}, "c:\\out", {"c:\\music\\y.wma"}, settings_, [](int, int) {});
  EXPECT_EQ(SummaryIn(drives_.Read("out")), "1 Items");
}

TEST_F(ReportEngine, KeepsASumThatWouldOverflow) {
  Select({1, 4});
  const LongFiles files(*files_, 2'147'483'647);
  GenerateReport({files, clock_, ","}, "c:\\out", {"c:\\music\\y.wma", "c:\\music\\y.wma"}, settings_,
                 [](int, int) {});
  EXPECT_EQ(SummaryIn(drives_.Read("out")), "2 Items, [2,048 Mb]");
}

TEST_F(ReportEngine, IsInTheCodePageWhereTitleAndPathsFit) {
  drives_.Write("\u00E9.mp3", TagBytes(3, FrameBytes(3, "TIT2", "\x01\xFF\xFE\x22\x6F")) + TextOf(Frames(5)));
  Select({1, 17});
  EXPECT_EQ(Rows({"c:\\\u00E9.mp3"}), Texts{"\xC9|?|"});
  settings_.Title = "\u6F22";
  EXPECT_NE(Report({"c:\\\u00E9.mp3"}).find("\u00C9|\u6F22|"), std::string::npos);
}

TEST_F(ReportEngine, ShowsHowFarItIs) {
  Report({"c:\\1", "c:\\2"});
  EXPECT_EQ(progress_, (std::vector<std::pair<int, int>>{{1, 2}, {2, 2}, {0, 2}}));
}

TEST_F(ReportEngine, KeepsTheOrderOfManyFiles) {
  Collection files;
  std::vector<std::string> wanted;
  for (int i = 1000; i < 1500; ++i) {
    files.push_back("c:\\" + std::to_string(i) + ".mp3");
    wanted.push_back(std::to_string(i) + "|");
  }
  Select({1});
  EXPECT_EQ(Rows(files), wanted);
}

TEST_F(ReportEngine, GoesThroughAllRowsWhereItCanNotBeWritten) {
  const ReportResult result = GenerateReport({*files_, clock_, ","}, "c:\\none\\out", {"c:\\1", "c:\\2"}, settings_,
                                             [&](int value, int count) { progress_.emplace_back(value, count); });
  EXPECT_FALSE(result.exists);
  EXPECT_FALSE(result.written);
  EXPECT_EQ(progress_.size(), 3u);
}

TEST_F(ReportEngine, SaysThatAFileIsThereThatItCouldNotReplace) {
  drives_.Write("out", "old");
  files_->SetAttributes("c:\\out", kReadOnly);
  const ReportResult result = Generate({"c:\\1"});
  EXPECT_TRUE(result.exists);
  EXPECT_FALSE(result.written);
  EXPECT_EQ(result.written.Reason(), "read-only");
  EXPECT_EQ(drives_.Read("out"), "old");
}

// Counts what is opened.
class CountedOpens : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    ++opened;
    return ForwardingFileSystem::OpenForReading(path);
  }
  mutable std::atomic<int> opened = 0;
};

TEST_F(ReportEngine, OpensNoSongForNamesAndFolders) {
  const CountedOpens counted(*files_);
  const Collection files = {"c:\\music\\my.song.mp3", "c:\\music\\x.ogg", "c:\\music\\y.wma"};
  Select({1, 2, 21});
  GenerateReport({counted, clock_, ","}, "c:\\out", files, settings_, [](int, int) {});
  EXPECT_EQ(counted.opened, 0);
  Select({1, 17});
  GenerateReport({counted, clock_, ","}, "c:\\out", files, settings_, [](int, int) {});
  EXPECT_EQ(counted.opened, 1);
}

TEST_F(ReportEngine, ListsAFolderOnceForAllRowsThatArePatterns) {
  const CountedListings counted(*files_);
  Collection files;
  for (int i = 0; i < 100; ++i) files.push_back("c:\\music\\?" + std::to_string(i) + ".mp3");
  files.push_back("c:\\music\\?.ogg");
  Select({1, 4});
  UsePlainText();
  EXPECT_TRUE(GenerateReport({counted, clock_, ","}, "c:\\out", files, settings_, [](int, int) {}).written);
  EXPECT_EQ(counted.OfAll(), 1);
  const std::string report = drives_.Read("out");
  std::size_t missing = 0;
  for (std::size_t at = report.find("Not found!"); at != report.npos; at = report.find("Not found!", at + 1))
    ++missing;
  EXPECT_EQ(missing, 100u);
}

}  // namespace
}  // namespace qublet
