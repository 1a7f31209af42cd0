#include "playlist/server_lines.h"

#include <gtest/gtest.h>

#include <mutex>

#include "platform/forwarding_file_system.h"
#include "playlist/expansion.h"
#include "playlist/list_status.h"
#include "playlist/paths/text.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

// Has the server "nas", whose share "music" is the folder "nas" of c:, and notes what anyone asks of any server.
class FilesOfServers : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  std::optional<unsigned> Attributes(const std::string& path) const override {
    return ForwardingFileSystem::Attributes(Noted(path));
  }
  std::int64_t FileLength(const std::string& path) const override {
    return ForwardingFileSystem::FileLength(Noted(path));
  }
  std::optional<FileIdentity> IdentityOfFile(const std::string& path) const override {
    return ForwardingFileSystem::IdentityOfFile(Noted(path));
  }
  std::optional<FolderIdentity> IdentityOf(const std::string& folder) const override {
    return ForwardingFileSystem::IdentityOf(Noted(folder));
  }
  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override {
    return ForwardingFileSystem::ReadFolder(Noted(folder));
  }
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    return ForwardingFileSystem::OpenForReading(Noted(path));
  }
  std::unique_ptr<RealNames> FindRealNames() const override { return std::make_unique<NotedNames>(*this); }
  // A folder of a server is no place that this program could go to here.
  std::string CurrentFolder() const override { return current_.empty() ? files_.CurrentFolder() : current_; }
  void SetCurrentFolder(const std::string& folder) override {
    current_ = folder;
    Noted(folder);
  }

  mutable Collection asked;

 private:
  class NotedNames : public RealNames {
   public:
    explicit NotedNames(const FilesOfServers& files) : files_(files) {}
    std::optional<std::string> Of(const std::string& path) override {
      files_.Noted(path);
      return std::nullopt;
    }

   private:
    const FilesOfServers& files_;
  };

  std::string Noted(const std::string& path) const {
    const std::string share = "\\\\nas\\music\\";
    const std::string lower = LowerCase(path);
    const std::lock_guard lock(mutex_);
    if (path.starts_with("\\\\") || path.starts_with("//")) asked.push_back(lower);
    return lower.starts_with(share) ? "c:\\nas\\" + path.substr(share.size()) : path;
  }

  mutable std::mutex mutex_;
  std::string current_;
};

class ServerLinesTest : public ListTestBase {
 protected:
  void Open(const std::string& list, const std::string& content) {
    drives_.Write(ReplaceAll(ReplaceAll(list, "\\\\nas\\music\\", "nas/"), "c:\\", ""), content);
    Rows().Clear();
    EXPECT_TRUE(items_.AddStuff(list, true)) << list;
  }

  // What was asked of servers, but for the list itself and its folder.
  Collection Asked(const std::string& list = "-") {
    Collection asked = std::move(servers_.asked);
    servers_.asked.clear();
    const std::string lower = LowerCase(list);
    std::erase_if(asked, [&](const std::string& path) { return lower.starts_with(path); });
    return asked;
  }

  FilesOfServers servers_{*files_};
  Items items_{document_, servers_, feedback_, view_, ","};
};

constexpr const char* kLines[] = {
    "\\\\evil\\music\\a.mp3",
    "\\\\EVIL\\music\\..\\a.mp3",
    "\\\\evil@SSL@8443\\music\\a.mp3",
    "\\\\evil@80\\DavWWWRoot\\a.mp3",
    "  \\\\evil\\music\\a.mp3",
    "\\\\evil\\music\\a%20b.mp3\x1A",
    "\\\\?\\UNC\\evil\\music\\a.mp3",
    "\\\\.\\UNC\\evil\\music\\a.mp3",
    "\\\\?\\GLOBALROOT\\Device\\Mup\\evil\\a.mp3",
    "\\/evil/music/a.mp3",
    "file://evil/music/a.mp3",
    "\\\\evil\\gr\xF6\xDF.mp3",
    "%5C%5Cevil%5Cmusic%5Ca.mp3",
    "file:////evil/music/a.mp3",
    "//evil/music/a.mp3",
};

TEST_F(ServerLinesTest, AskNoServer) {
  for (const char* list : {"c:\\list.m3u", "c:\\list.m3u8"}) {
    for (const std::string line : kLines) {
      Open(list, line + "\n");
      ASSERT_EQ(Rows().Count(), 1) << line;
      EXPECT_TRUE(Rows().At(1).ghosted) << line;
      EXPECT_EQ(Asked(), Collection{}) << list << ": " << line;
      EXPECT_FALSE(WorkOutStatus(Rows(), servers_, {}, ",").facts.file_there);
      EXPECT_EQ(Asked(), Collection{}) << "selected: " << line;
      items_.MViewRefresh_Click();
      EXPECT_EQ(Asked(), Collection{}) << "anew: " << line;
      Collection paths;
      LeftOut left_out;
      ExpandStuff(servers_, feedback_, list, paths, left_out);
      EXPECT_EQ(Asked(), Collection{}) << "expanded: " << line;
    }
  }
}

TEST_F(ServerLinesTest, AreRowsOfJustTheirPaths) {
  Open("c:\\list.m3u", "\\\\evil\\music\\a.mp3\n");
  EXPECT_EQ(Paths(), Collection{"\\\\evil\\music\\a.mp3"});
  EXPECT_EQ(Rows().At(1).icon, RowIcon::kMissing);
  ASSERT_NE(Rows().At(1).kept, nullptr);
  EXPECT_EQ(Rows().At(1).kept->bytes, "\\\\evil\\music\\a.mp3");
}

TEST_F(ServerLinesTest, AskTheServerThatTheListLiesOn) {
  Touch({"nas/a.mp3", "nas/sub/b.mp3"});
  const std::string list = "\\\\nas\\music\\list.m3u";
  Open(list, "\\\\NAS\\music\\a.mp3\nsub\\b.mp3\n\\\\evil\\music\\c.mp3\n\\evil\\d.mp3\n");
  ASSERT_EQ(Rows().Count(), 4);
  EXPECT_FALSE(Rows().At(1).ghosted) << Rows().At(1).FullPath();
  EXPECT_TRUE(Rows().At(3).ghosted);
  const Collection asked = Asked(list);
  EXPECT_FALSE(asked.empty());
  for (const std::string& path : asked) EXPECT_TRUE(path.starts_with("\\\\nas\\music\\")) << path;
}

}  // namespace
}  // namespace qublet
