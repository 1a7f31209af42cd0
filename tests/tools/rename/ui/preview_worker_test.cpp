#include "tools/rename/preview_worker.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>

#include "platform/forwarding_file_system.h"
#include "support/rename_test_base.h"

namespace qublet {
namespace {

// A disk that answers only when the test lets it.
class HeldFileSystem : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  std::optional<unsigned> Attributes(const std::string& path) const override {
    ++asked;
    while (held) std::this_thread::yield();
    threads_are_others = threads_are_others && std::this_thread::get_id() != window;
    return ForwardingFileSystem::Attributes(path);
  }

  mutable std::atomic<int> asked = 0;
  std::atomic<bool> held = false;
  mutable std::atomic<bool> threads_are_others = true;
  const std::thread::id window = std::this_thread::get_id();
};

class PreviewWorkerTest : public RenameTestBase {
 protected:
  struct Answer {
    int number;
    std::vector<PreviewRow> rows;
  };
  std::vector<Answer> Answers() {
    const std::scoped_lock lock(mutex_);
    return answers_;
  }
  bool WaitFor(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
    return condition();
  }

  std::mutex mutex_;
  std::vector<Answer> answers_;
  HeldFileSystem held_{*files_};
  PreviewWorker worker_{held_, [this](int number, std::vector<PreviewRow> rows) {
                          const std::scoped_lock lock(mutex_);
                          answers_.push_back({number, std::move(rows)});
                        }};
};

TEST_F(PreviewWorkerTest, AsksTheDiskOnAThreadOfItsOwn) {
  drives_.Write("a_b.mp3", "");
  const int number = worker_.Start({{}, {"c:\\a_b.mp3"}, true});
  ASSERT_TRUE(WaitFor([this] { return !Answers().empty(); }));
  EXPECT_EQ(Answers()[0].number, number);
  EXPECT_EQ(Answers()[0].rows.at(0).new_path, "c:\\A B.mp3");
  EXPECT_EQ(Answers()[0].rows.at(0).fate, RenameFate::kRenamed);
  EXPECT_TRUE(held_.threads_are_others);
}

TEST_F(PreviewWorkerTest, ANewerRequestStopsTheOlder) {
  held_.held = true;
  worker_.Start({{}, Collection(1000, "c:\\gone.mp3"), true});
  ASSERT_TRUE(WaitFor([this] { return held_.asked > 0; }));
  const int newest = worker_.Start({{}, {"c:\\gone.mp3"}, true});
  held_.held = false;
  ASSERT_TRUE(WaitFor([this] { return !Answers().empty(); }));
  EXPECT_EQ(Answers().size(), 1u);
  EXPECT_EQ(Answers()[0].number, newest);
  EXPECT_LE(held_.asked, 4) << "the older one stopped at the file that it was at";
}

TEST_F(PreviewWorkerTest, IsStillWhenItWasStopped) {
  worker_.Start({{}, Collection(30000, "c:\\gone.mp3"), true});
  ASSERT_TRUE(WaitFor([this] { return held_.asked > 0; }));
  worker_.Stop();
  const int asked = held_.asked;
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_EQ(held_.asked, asked);
  EXPECT_TRUE(Answers().empty());
}

TEST_F(PreviewWorkerTest, KeepsTitlesUntilTheyAreForgotten) {
  drives_.Write("a.mp3", TaggedSong("First"));
  RenameConfig config;
  config.RenID3 = true;
  const auto name = [&](std::size_t count) {
    worker_.Start({config, {"c:\\a.mp3"}, true});
    EXPECT_TRUE(WaitFor([&] { return Answers().size() == count; }));
    return Answers().back().rows.at(0).new_path;
  };
  EXPECT_EQ(name(1), "c:\\Artist - First.mp3");
  drives_.Write("a.mp3", TaggedSong("Second"));
  EXPECT_EQ(name(2), "c:\\Artist - First.mp3");
  worker_.ForgetTitles();
  EXPECT_EQ(name(3), "c:\\Artist - Second.mp3");
}

TEST(QuickPreview, AsksNothingOfTheDisk) {
  PreviewRequest request{{}, Collection(2000, "c:\\a.mp3"), true};
  EXPECT_TRUE(IsQuick(request));
  request.config.RenID3 = true;
  EXPECT_FALSE(IsQuick(request)) << "tags are read";
  request.config.RenID3 = false;
  request.config.Increment = true;
  EXPECT_FALSE(IsQuick(request)) << "folders are listed";
  request.ResetPerFolder = false;
  EXPECT_TRUE(IsQuick(request));
  request.paths.emplace_back("c:\\b.mp3");
  EXPECT_FALSE(IsQuick(request)) << "too many rows";
}

}  // namespace
}  // namespace qublet
