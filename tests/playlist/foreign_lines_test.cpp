#include "playlist/foreign_lines.h"

#include <gtest/gtest.h>

#include <atomic>

#include "platform/forwarding_file_system.h"
#include "playlist/expansion.h"
#include "playlist/paths/text.h"
#include "playlist/playlist_files.h"
#include "support/environment.h"
#include "support/foreign_lines_table.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

using namespace std::string_literals;

class ForeignLinesTest : public ListTestBase {
 protected:
  void Check(const ForeignLine& line, const std::string& list) {
    SCOPED_TRACE(std::string(line.habit) + ", " + list + ": " + line.line);
    const TemporaryDrives own_drives;
    const ScopedEnvironment page("QUBLET_CODEPAGE", line.page);
    files_ = OpenFileSystem();
    const Services services = fakes_.Over(*files_, feedback_);
    Document document;
    const RowStore& rows = document.ListView1;
    Items items(document, *files_, feedback_, view_, ",");
    PlaylistFiles playlist_files(document, items, settings_, services, view_);
    const auto filled = [&](const char* text) { return FilledIn(text, *files_, own_drives.Root()); };
    PutOnDisk(line, own_drives.Root());
    own_drives.Write("list/" + list, filled(line.line) + "\n");
    items.AddStuff("c:\\list\\" + list, false);
    ASSERT_EQ(rows.Count(), 1);
    EXPECT_EQ(rows.At(1).FullPath(), filled(line.path));
    EXPECT_EQ(rows.At(1).ghosted, !line.there);
    EXPECT_EQ(rows.At(1).kept == nullptr, line.there);
    EXPECT_EQ(rows.At(1).cells[kSize], line.there ? "3 Bytes" : "0 Bytes");
    Collection expanded;
    LeftOut left_out;
    ExpandStuff(*files_, feedback_, "c:\\list\\" + list, expanded, left_out);
    EXPECT_EQ(expanded, Collection{rows.At(1).RealPath()});
    EXPECT_EQ(files_->Exists(expanded.at(0)), line.there);

    EXPECT_TRUE(playlist_files.SaveTo("c:\\list\\saved.m3u", PlaylistFiles::LineForm::kFull));
    EXPECT_EQ(own_drives.Read("list/saved.m3u"), filled(line.m3u) + "\r\n");
    EXPECT_TRUE(playlist_files.SaveTo("c:\\list\\saved.m3u8", PlaylistFiles::LineForm::kFull));
    EXPECT_EQ(own_drives.Read("list/saved.m3u8"), filled(line.m3u8) + "\n");
  }

  AppSettings settings_;
};

TEST_F(ForeignLinesTest, BecomeTheseRowsAndTheseLines) {
  ForEachForeignLine([this](const ForeignLine& line, const std::string& list) { Check(line, list); });
}

// Counts what a list costs on the disk.
class CountingFileSystem : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  bool Exists(const std::string& path) const override {
    ++looked_up;
    return ForwardingFileSystem::Exists(path);
  }
  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override {
    ++listed;
    return ForwardingFileSystem::ReadFolder(folder);
  }
  std::unique_ptr<RealNames> FindRealNames() const override { return std::make_unique<Counted>(*this); }

  mutable std::atomic<int> looked_up{0};
  mutable std::atomic<int> looked_for{0};  // in any case
  mutable std::atomic<int> listed{0};

 private:
  class Counted : public RealNames {
   public:
    explicit Counted(const CountingFileSystem& files) : files_(files), names_(FindNamesInAnyCase(files)) {}
    std::optional<std::string> Of(const std::string& path) override {
      ++files_.looked_for;
      return names_->Of(path);
    }

   private:
    const CountingFileSystem& files_;
    std::unique_ptr<RealNames> names_;
  };
};

class CostOfLines : public ListTestBase {
 protected:
  void Open(const std::string& content) {
    drives_.Write("list.m3u", content);
    Items(document_, counted_, feedback_, view_, ",").AddStuff("c:\\list.m3u", false);
  }
  CountingFileSystem counted_{*files_};
};

TEST_F(CostOfLines, IsNothingForFilesThatAreThere) {
  std::string content;
  for (int i = 0; i < 100; ++i) {
    Touch({"m/" + std::to_string(i) + ".mp3"});
    content += "c:\\m\\" + std::to_string(i) + ".mp3\r\nm\\" + std::to_string(i) + ".mp3\r\n";
  }
  Open(content);
  ASSERT_EQ(Rows().Count(), 200);
  EXPECT_EQ(counted_.looked_up, 0);
  EXPECT_EQ(counted_.looked_for, 0);
  EXPECT_EQ(counted_.listed, 0);
}

TEST_F(CostOfLines, IsOneListingForTheMissingFilesOfAFolder) {
  Touch({"m/x.mp3"});
  Open(PlaylistOfMissingFiles(300) + ReplaceAll(PlaylistOfMissingFiles(300), "gone", "m"));
  ASSERT_EQ(Rows().Count(), 600);
  EXPECT_EQ(counted_.listed, 2) << "c: for the folder that isn't there, and m";
  EXPECT_LE(counted_.looked_up, 600 + 2) << "each once, and the folders";
}

TEST_F(CostOfLines, EndsAtSixteenLookUps) {
  Open(" \xE4%20\xF6\\b:c/%41d\\e%E9.mp3 \x1A\r\n");
  ASSERT_EQ(Rows().Count(), 1);
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kMissing);
  EXPECT_GT(counted_.looked_for, 3);
  constexpr int kOwnLook = 1;
  EXPECT_LE(kOwnLook + counted_.looked_for * 2, static_cast<int>(ForeignLines::kMostLookUps) + 1);
}

class LinesFromElsewhere : public ListTestBase {
 protected:
  Collection Opened(const std::string& list) {
    Rows().Clear();
    items_.AddStuff(list, false);
    return Paths();
  }
};

TEST_F(LinesFromElsewhere, MayBeUtf16) {
  Touch({"\u00F6\u97F3.mp3"});
  const std::string text =
      "#\0\r\0\n\0\xF6\0\xF3\x97.\0m\0p\0"
      "3\0\r\0\n\0"s;
  std::string swapped = text;
  for (std::size_t i = 0; i + 1 < swapped.size(); i += 2) std::swap(swapped[i], swapped[i + 1]);
  drives_.Write("little.m3u", "\xFF\xFE" + text);
  drives_.Write("big.m3u8", "\xFE\xFF" + swapped);
  drives_.Write("odd.m3u", "\xFF\xFE" + text + "x");
  for (const char* list : {"c:\\little.m3u", "c:\\big.m3u8", "c:\\odd.m3u"}) {
    EXPECT_EQ(Opened(list), Collection{"c:\\\u00F6\u97F3.mp3"}) << list;
    EXPECT_EQ(Rows().At(1).icon, RowIcon::kNormal) << list;
  }
}

TEST_F(LinesFromElsewhere, MayHoldPairsAndHalvesOfPairsInUtf16) {
  drives_.Write("a.m3u",
                "\xFF\xFE\x3D\xD8\x00\xDE.\0m\0p\0"
                "3\0\n\0\x00\xDE.\0m\0p\0"
                "3\0\n\0\x3D\xD8.\0m\0p\0"
                "3\0"s);
  EXPECT_EQ(Opened("c:\\a.m3u"), (Collection{"c:\\\U0001F600.mp3", "c:\\\uFFFD.mp3", "c:\\\uFFFD.mp3"}));
}

#ifndef _WIN32
TEST_F(LinesFromElsewhere, AreReadFromTheFolderThatALinkLeadsToWhereTheyArentBesideTheLink) {
  Touch({"real/only there.mp3", "real/both.mp3", "links/both.mp3", "real/sub/Deep.mp3"});
  drives_.Write("real/list.m3u", "only there.mp3\nboth.mp3\nSUB\\deep.mp3\ngone.mp3\n");
  std::filesystem::create_symlink(drives_.C() / "real/list.m3u", drives_.C() / "links/list.m3u");
  EXPECT_EQ(Opened("c:\\links\\list.m3u"), (Collection{"c:\\real\\only there.mp3", "c:\\links\\both.mp3",
                                                       "c:\\real\\SUB\\deep.mp3", "c:\\links\\gone.mp3"}));
}
#endif

TEST_F(LinesFromElsewhere, KeepTheirTextAndKnowTheirFileInAnotherCase) {
  drives_.Write("Music/Song.wav", "abc");
  drives_.Write("a.m3u", "C:\\MUSIC\\SONG.WAV\r\n");
  EXPECT_EQ(Opened("c:\\a.m3u"), Collection{"c:\\MUSIC\\SONG.WAV"});
  EXPECT_EQ(Rows().At(1).RealPath(), "c:\\Music\\Song.wav");
  EXPECT_EQ(Rows().At(1).cells[kSize], "3 Bytes");
  items_.MViewRefresh_Click();
  EXPECT_EQ(Paths(), Collection{"c:\\MUSIC\\SONG.WAV"});
  EXPECT_EQ(Rows().At(1).RealPath(), "c:\\Music\\Song.wav");
  Rows().SetCell(1, kFileName, "other.wav");
  EXPECT_EQ(Rows().At(1).RealPath(), "c:\\MUSIC\\other.wav");
}

TEST_F(LinesFromElsewhere, OfAnotherHostStayAsTheyAreWhenTheListIsReadAnew) {
  drives_.Write("a.m3u", "file://nas/music/a%20b.mp3\r\nhttp://host/a.mp3\r\n\\\\nas\\c.mp3\r\n");
  const Collection paths{"\\\\nas\\music\\a b.mp3", "\\http://host/a.mp3", "\\\\nas\\c.mp3"};
  EXPECT_EQ(Opened("c:\\a.m3u"), paths);
  items_.MViewRefresh_Click();
  EXPECT_EQ(Paths(), paths);
}

TEST_F(ForeignLinesTest, AreMany) {
  EXPECT_GE(ForeignLinesTable().size(), 150U);
}

}  // namespace
}  // namespace qublet
