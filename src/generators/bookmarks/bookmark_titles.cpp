#include "generators/bookmarks/bookmark_titles.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

#include "media/track_titles.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::size_t kWorthThreads = 16;  // fewer files are read sooner than threads start
constexpr std::chrono::milliseconds kShowEvery{25};

std::string TitleOf(const FileSystem& files, std::string path) {
  FileDetails details;
  GetFileDetails(files, path, details);
  std::string title;
  if (details.Extension == ".mp3") title = GetMp3TrackTitle(files, path);
  if (details.Extension == ".ogg") title = GetOggTrackTitle(files, path);
  const std::string name = GetFileName(path);
  return ProperCase(title.empty() ? ReplaceAll(name, GetExtension(name), "") : title);
}

// The title of each path. Throws Failure when the user stops it.
Collection ReadTitles(const FileSystem& files, const Collection& paths, Feedback& feedback) {
  Collection titles(paths.size());
  std::atomic<std::size_t> taken = 0;
  std::atomic<bool> stopped = false;
  const auto read = [&] {
    for (std::size_t i = taken++; i < paths.size() && !stopped; i = taken++) titles[i] = TitleOf(files, paths[i]);
  };
  std::vector<std::future<void>> readers;
  const unsigned count = paths.size() < kWorthThreads ? 0 : std::max(2U, std::thread::hardware_concurrency());
  // A system that allows no (more) threads leaves the work to those there are.
  ResumeNext([&] {
    for (unsigned i = 0; i < count; ++i) readers.push_back(std::async(std::launch::async, read));
  });
  if (readers.empty()) {
    read();
    return titles;
  }
  feedback.BeginProgress("Get File Info...", static_cast<int>(paths.size()));
  const Outcome all_read = Attempt([&] {
    for (std::future<void>& reader : readers) {
      while (reader.wait_for(kShowEvery) != std::future_status::ready) {
        feedback.ShowProgress(static_cast<int>(std::min(taken.load(), paths.size())));
        if (feedback.Stopped()) stopped = true;
      }
      reader.get();
    }
  });
  feedback.EndProgress();
  all_read.OrThrow();
  if (feedback.Stopped()) throw Failure("stopped");
  return titles;
}

}  // namespace

Outcome BuildBookmarkTitles(const FileSystem& files, const std::string& path, const Collection& files_listed,
                            Feedback& feedback) {
  return Attempt([&] {
    const Collection titles = ReadTitles(files, files_listed, feedback);
    Collection lines;
    lines.reserve(2 * titles.size());
    for (std::size_t i = 0; i < titles.size(); ++i) {
      lines.push_back(files_listed[i]);
      lines.push_back(titles[i]);
    }
    WritePlainLines(files, path, lines).OrThrow();
  });
}

}  // namespace qublet
