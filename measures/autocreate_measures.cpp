#include "autocreate_measures.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "floors.h"
#include "generators/autocreate/autocreate_run.h"
#include "playlist/paths/text_files.h"
#include "workplace.h"

namespace qublet::measures {
namespace {

constexpr int kFolders = 500;
constexpr int kFilesInEach = 20;

struct Playlist {
  std::string path;
  Collection lines;
};

// 10,000 files that only the list knows, in folders that are there, and what becomes of them.
struct FullList {
  std::shared_ptr<FileSystem> files = OpenFileSystem();
  Collection paths;
  std::vector<Playlist> playlists;
};

std::shared_ptr<FullList> ListOf(const Workplace& workplace) {
  auto list = std::make_shared<FullList>();
  for (int i = 0; i < kFolders; ++i) {
    const std::string artist = "artist " + std::to_string(i / 20);
    const std::string album = "album " + std::to_string(i);
    const std::filesystem::path place = workplace.Root() / "autocreate" / artist / album;
    std::filesystem::create_directories(place);
    const std::string folder = list->files->FromNative(place.string()) + "\\";
    Playlist playlist{folder + album + "-" + artist + ".m3u", {}};
    for (int file = 0; file < kFilesInEach; ++file) {
      playlist.lines.push_back("Track " + std::to_string(file) + " of it.mp3");
      list->paths.push_back(folder + playlist.lines.back());
    }
    list->playlists.push_back(std::move(playlist));
  }
  return list;
}

void AutoCreate(const FullList& list) {
  AutoCreateOrder order;
  order.FileArray = list.paths;
  order.Paths = FoldersThatExist(*list.files, order.FileArray);
  const SystemClock clock;
  const AutoCreateResult result = CreatePlaylists(std::move(order), *list.files, clock, {});
  if (result.Written.size() != list.playlists.size() || result.Written.back() != list.playlists.back().path)
    throw std::runtime_error("playlists are missing");
}

void WriteAll(const FullList& list) {
  for (const Playlist& playlist : list.playlists)
    WriteLinesToFile(*list.files, playlist.path, playlist.lines).OrThrow();
}

Contest PlaylistsAgainstTheirFilesAlone(Workplace& workplace) {
  const auto list = ListOf(workplace);
  AutoCreate(*list);
  for (const Playlist& playlist : list->playlists)
    if (ReadWholeFile(list->files->ToNative(playlist.path)) != EncodeLines(playlist.lines))
      throw std::runtime_error("a playlist is wrong");
  return {[list] { return SecondsOf([&] { AutoCreate(*list); }); },
          [list] { return SecondsOf([&] { WriteAll(*list); }); }};
}

}  // namespace

std::vector<Measure> AutoCreateMeasures() {
  return {{"autocreate_10000", 1.5, PlaylistsAgainstTheirFilesAlone}};
}

}  // namespace qublet::measures
