#include "playlist/batch_reader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>

#include "platform/forwarding_file_system.h"
#include "playlist/row_filling.h"
#include "support/list_test_base.h"
#include "support/slow_file_system.h"

namespace qublet {
namespace {

class BatchReaderTest : public ListTestBase {
 protected:
  Collection Files(const std::string& folder, int count) const {
    Collection paths;
    for (int i = 0; i < count; ++i) {
      const std::string name = std::to_string(100 + i) + ".mp3";
      drives_.Write(folder + "/" + name, "abc");
      paths.push_back("c:\\" + folder + "\\" + name);
    }
    return paths;
  }

  static Collection FullPaths(const std::vector<std::unique_ptr<Row>>& rows) {
    Collection paths;
    for (const auto& row : rows) paths.push_back(row->FullPath());
    return paths;
  }

  static BatchReader::MakeRow ReadFrom(const FileSystem& files) {
    return [&files](std::size_t, const std::string& path, int original_order, Row& row) {
      ReadInto(files, path, original_order, row);
    };
  }
  static void ReadInto(const FileSystem& files, const std::string& path, int original_order, Row& row) {
    MediaInfo info;
    ReadFacts(files, path, info);
    WriteRow(std::move(info), original_order, ",", row);
  }

  std::vector<std::unique_ptr<Row>> Finish(BatchReader& reader) {
    feedback_.BeginProgress("", 0);
    return reader.Finish(feedback_);
  }
};

TEST_F(BatchReaderTest, GivesNothingForNothing) {
  BatchReader reader(1, ReadFrom(*files_));
  EXPECT_TRUE(Finish(reader).empty());
}

TEST_F(BatchReaderTest, KeepsTheOrderOfThePathsHoweverTheyCome) {
  const Collection paths = Files("m", 100);
  const std::span<const std::string> all = paths;
  BatchReader reader(7, ReadFrom(*files_));
  reader.Add(all.first(1));
  reader.Add(all.subspan(1, 50));
  reader.Add(all.subspan(51, 0));
  reader.Add(all.subspan(51));
  const auto rows = Finish(reader);
  EXPECT_EQ(FullPaths(rows), paths);
  EXPECT_EQ(rows.front()->cells[kOriginalOrder], "7");
  EXPECT_EQ(rows.back()->cells[kOriginalOrder], "106");
  EXPECT_EQ(feedback_.progress.back().values.back(), 100);
  EXPECT_FALSE(feedback_.foreign_thread);
}

TEST_F(BatchReaderTest, IsAllOrNothingWhereMemoryIsWanting) {
  const Collection paths = Files("m", 100);
  for (const std::size_t count : {5u, 100u}) {
    BatchReader reader(1, [this, count](std::size_t place, const std::string& path, int original_order, Row& row) {
      if (place == count - 1) throw std::bad_alloc();
      ReadInto(*files_, path, original_order, row);
    });
    reader.Add(std::span(paths).first(count));
    EXPECT_THROW(Finish(reader), std::bad_alloc);
  }
}

// Takes all memory while it reads one file.
class GreedyFileSystem : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    if (path.ends_with("\\40.mp3")) throw std::bad_alloc();
    return ForwardingFileSystem::OpenForReading(path);
  }
};

TEST_F(BatchReaderTest, LacksMemoryForOneFileAndReadsTheOthers) {
  const Collection paths = Files("m", 100);
  const GreedyFileSystem greedy(*files_);
  BatchReader reader(1, ReadFrom(greedy));
  reader.Add(paths);
  const auto rows = Finish(reader);
  EXPECT_EQ(FullPaths(rows), paths);
}

TEST_F(BatchReaderTest, LeavesOutWhatNoThreadHasTakenWhenItIsDropped) {
  const Collection paths = Files("m", 500);
  const SlowFileSystem slow(std::chrono::milliseconds(20));
  const auto start = std::chrono::steady_clock::now();
  {
    BatchReader reader(1, ReadFrom(slow));
    reader.Add(paths);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << "all would take 5 s";
}

// Lists the folder "b" only when a file has been opened, or after a while.
class WaitingFileSystem : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;

  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override {
    if (folder.ends_with("\\b\\")) {
      std::unique_lock lock(mutex_);
      opened_in_time = opened_.wait_for(lock, std::chrono::seconds(10), [&] { return any_open_; });
    }
    return ForwardingFileSystem::ReadFolder(folder);
  }
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    const std::lock_guard lock(mutex_);
    any_open_ = true;
    opened_.notify_all();
    return ForwardingFileSystem::OpenForReading(path);
  }

  mutable bool opened_in_time = false;

 private:
  mutable std::mutex mutex_;
  mutable std::condition_variable opened_;
  mutable bool any_open_ = false;
};

TEST_F(BatchReaderTest, ReadsTheFilesOfAFolderWhileTheWalkIsInTheNext) {
  Collection all = Files("m/a", 100);
  for (std::string& path : all) path.replace(4, 1, "\\");
  for (int i = 0; i < 5; ++i) drives_.Write("m/b/" + std::to_string(i) + ".mp3", "abc");
  WaitingFileSystem waiting(*files_);
  Items items(document_, waiting, feedback_, view_, ",");
  EXPECT_TRUE(items.AddStuff("c:\\m", true));
  EXPECT_TRUE(waiting.opened_in_time);
  EXPECT_EQ(Rows().Count(), 105);
  EXPECT_EQ(Rows().At(100).FullPath(), all.back());
  EXPECT_EQ(Rows().At(105).FullPath(), "c:\\m\\b\\4.mp3");
}

}  // namespace
}  // namespace qublet
