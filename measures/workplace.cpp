#include "workplace.h"

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

#include "mp3_files.h"

namespace qublet::measures {
namespace {

constexpr int kArtists = 25;
constexpr int kAlbums = 20;
constexpr int kAlbumTracks = Workplace::kTracks / (kArtists * kAlbums);

std::string Numbered(const char* format, int number) {
  char text[64];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

void WriteFile(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary);
  out << bytes;
  if (!out.flush()) throw std::runtime_error("can't write " + path.string());
}

// So that a later flush waits for its own bytes alone.
void FlushAll() {
  sync();
}

}  // namespace

Workplace::Workplace() {
  std::string pattern = (std::filesystem::temp_directory_path() / "qublet-measures-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("can't make a folder " + pattern);
  root_ = pattern;
}

Workplace::~Workplace() {
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

const std::filesystem::path& Workplace::Collection() {
  if (!collection_.empty()) return collection_;
  std::fprintf(stderr, "measures: laying out %d files ...\n", kTracks);
  const std::vector<std::string> kinds = MakeMp3Files();
  const std::filesystem::path collection = root_ / "collection";
  std::size_t next = 0;
  for (int artist = 1; artist <= kArtists; ++artist) {
    for (int album = 1; album <= kAlbums; ++album) {
      const auto folder = collection / Numbered("Artist %02d", artist) / Numbered("Album %02d", album);
      std::filesystem::create_directories(folder);
      for (int track = 1; track <= kAlbumTracks; ++track) {
        WriteFile(folder / Numbered("%02d - A title of usual length.mp3", track), kinds[next++ % kinds.size()]);
      }
    }
  }
  FlushAll();
  return collection_ = collection;
}

std::vector<std::string> Workplace::Tracks(int count) {
  std::vector<std::string> tracks;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(Collection())) {
    if (entry.is_regular_file()) tracks.push_back(entry.path().string());
  }
  std::sort(tracks.begin(), tracks.end());
  for (std::size_t i = 0; tracks.size() < static_cast<std::size_t>(count); ++i) tracks.push_back(tracks[i]);
  tracks.resize(static_cast<std::size_t>(count));
  return tracks;
}

const std::vector<std::string>& Workplace::Tagged() {
  if (!tagged_.empty()) return tagged_;
  std::vector<std::string> kinds = MakeMp3Files();
  std::erase_if(kinds, [](const std::string& kind) { return !kind.starts_with("ID3"); });
  const std::filesystem::path folder = root_ / "tagged";
  std::filesystem::create_directories(folder);
  for (std::size_t i = 0; i < kTagged; ++i) {
    const auto file = folder / Numbered("%04d - A title of usual length.mp3", static_cast<int>(i));
    WriteFile(file, kinds[i % kinds.size()]);
    tagged_.push_back(file.string());
  }
  FlushAll();
  return tagged_;
}

}  // namespace qublet::measures
