#include "playlist/foreign_lines.h"

#include <algorithm>

#include "fuzz/fuzz_input.h"
#include "platform/code_page.h"
#include "platform/drive_form.h"

// Whatever a line is, it is read in ways that are full paths of text without "/", none twice, and its row has a path.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::unique_ptr<qublet::FileSystem> files = qublet::OpenFileSystem();
  for (const bool native : {false, true}) {
    qublet::PlaylistLines playlist;
    playlist.native = native;
    playlist.folder = "z:\\no such folder\\";
    playlist.linked_folder = "z:\\no other folder\\";
    qublet::Collection paths;
    qublet::ReadPlaylistBytes(*files, std::string(qublet::TextOf(data, size)), playlist, paths);
    qublet::Require(paths.size() == playlist.lines.size());
    const qublet::ForeignLines lines(*files, playlist, ",");
    for (std::size_t i = 0; i < paths.size() && i < 50; ++i) {
      qublet::Collection candidates = lines.Candidates(playlist.lines[i]);
      for (const std::string& path : candidates) {
        qublet::Require(path.find('/') == path.npos && (qublet::HasDrive(path) || path.starts_with("\\\\")));
        qublet::Require(qublet::IsValidUtf8(path));
      }
      std::sort(candidates.begin(), candidates.end());
      qublet::Require(std::adjacent_find(candidates.begin(), candidates.end()) == candidates.end());
      qublet::Row row;
      lines.FillRow(i, paths[i], 1, row);
      qublet::Require(qublet::IsValidUtf8(row.FullPath()));
    }
  }
  return 0;
}
