#include "workplace.h"

#include <stdlib.h>

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
  return collection_ = collection;
}

}  // namespace qublet::measures
