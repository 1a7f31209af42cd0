#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "media/media_info.h"
#include "platform/file_system.h"
#include "platform/language_code_page.h"
#include "playlist/playlist_lines.h"
#include "playlist/row_store.h"
#include "playlist/server_lines.h"

namespace qublet {

// Rows of a playlist's lines, wherever the playlist came from. A line is at home when the full path of the row that
// it becomes names a file and holds no "/". Every other line is read in further ways: as other programs and systems
// write theirs (see the table of readings in the source). The first way that leads to an existing file gives the row
// its path; where none does, the row stays what the line became. Safe to use from several threads.
class ForeignLines {
 public:
  // How often a line that isn't at home is looked up on the disk at most.
  static constexpr std::size_t kMostLookUps = 16;

  // `files` and `playlist` outlive this. The playlist's folder is the current one.
  ForeignLines(const FileSystem& files, const PlaylistLines& playlist, std::string thousands_separator);

  // Makes the row of the line in that place, taken in as `path`. False when no file is there.
  bool FillRow(std::size_t place, const std::string& path, int original_order, Row& row) const;
  // The path of that row's file as the disk has it, without reading the file; where none is there the row's full
  // path.
  std::string FileOf(std::size_t place, const std::string& path) const;

  // What a missing line says as a full path, where its row's text is none and no address; "" elsewhere.
  std::string WholePathOf(std::string_view bytes, const std::string& row_path) const;

  // The paths that a line may mean besides the one that it was taken in as, in the order in which they are looked
  // up: absolute, without "/", none twice.
  Collection Candidates(std::string_view bytes) const;

 private:
  // A row's path, and the file that it leads to as the disk knows it.
  struct Found {
    std::string path;
    std::string real;
  };

  std::optional<Found> Find(std::string_view bytes, const std::string& as_taken) const;
  void ReadUnlessMissing(const std::string& path, MediaInfo& info) const;
  bool IsOnAnotherHost(std::string_view bytes) const;
  bool MayBeOwnBytes(std::string_view bytes) const;

  const FileSystem& files_;
  const PlaylistLines& playlist_;
  const ServerLines servers_;
  const std::string thousands_separator_;
  const LanguageCodePage page_;
  const bool own_form_has_drives_;
  const std::unique_ptr<RealNames> names_;
  mutable std::atomic<bool> last_is_missing_{false};
};

}  // namespace qublet
