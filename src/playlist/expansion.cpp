#include "playlist/expansion.h"

#include <algorithm>

#include "media/media_info.h"
#include "playlist/foreign_lines.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/playlist_lines.h"
#include "playlist/row_filling.h"

namespace qublet {
namespace {

// As the row that is made of the path has it.
std::string FullPath(const FileSystem& files, const std::string& path) {
  MediaInfo info;
  NameFacts(files, path, info);
  return info.Path + info.FileName;
}

void AppendPlaylist(const FileSystem& files, const std::string& path, Collection& found, LeftOut& left_out) {
  PlaylistLines playlist;
  Collection paths;
  const Outcome read = ReadPlaylist(files, path, playlist, paths);
  left_out.long_lines += playlist.long_lines;
  left_out.further_lines += playlist.further_lines;
  read.OrThrow();
  const ForeignLines lines(files, playlist, "");
  for (std::size_t i = 0; i < paths.size(); ++i) found.push_back(lines.FileOf(i, paths[i]));
}

}  // namespace

StuffKind KindOfStuff(const FileDetails& details) {
  if (details.IsFolder) return StuffKind::kFolder;
  if (!details.IsFile) return StuffKind::kNothing;
  if (std::ranges::find(FileFilters(), "*" + details.Extension) != FileFilters().end()) return StuffKind::kAudioFile;
  return IsPlaylistExtension(details.Extension) ? StuffKind::kPlaylist : StuffKind::kNothing;
}

std::string FolderOfPlaylist(const std::string& path) {
  return ReplaceAll(path, "\\" + GetFileName(path), "");
}

Outcome ExpandStuff(FileSystem& files, Feedback& feedback, std::string filename, Collection& paths,
                    LeftOut& left_out) {
  return Attempt([&] {
    FileDetails details;
    GetFileDetails(files, filename, details);
    Collection found;
    switch (KindOfStuff(details)) {
      case StuffKind::kNothing:
        break;
      case StuffKind::kAudioFile:
        found.push_back(FullPath(files, details.Path));
        break;
      case StuffKind::kFolder:
        left_out.walk += WalkFolder(files, feedback, details.Path, FileFilters(), found, true, false);
        for (std::string& path : found) path = FullPath(files, path);
        break;
      case StuffKind::kPlaylist:
        files.SetCurrentFolder(FolderOfPlaylist(details.Path));
        AppendPlaylist(files, details.Path, found, left_out);
        break;
    }
    if (feedback.Stopped()) throw Failure("stopped");
    if (found.empty()) throw Failure("nothing to list");
    paths.insert(paths.end(), found.begin(), found.end());
  });
}

}  // namespace qublet
