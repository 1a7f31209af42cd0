#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/feedback.h"
#include "platform/file_system.h"
#include "playlist/batch_reader.h"
#include "playlist/document.h"
#include "playlist/kept_line.h"
#include "playlist/left_out.h"
#include "playlist/main_view.h"
#include "playlist/paths/file_details.h"
#include "playlist/playlist_form.h"

namespace qublet {

// The ways into the list: one file becomes a row, a folder or a playlist becomes a batch of rows.
class Items {
 public:
  Items(Document& document, FileSystem& files, Feedback& feedback, MainView& view, std::string thousands_separator)
      : document_(document),
        files_(files),
        feedback_(feedback),
        view_(view),
        thousands_separator_(std::move(thousands_separator)) {}

  // Adds a row for `filename` before row `Index`, or at the end if that is below 1. "Original Order" becomes
  // `OrigIndex`, or the row's own index if that is 0. Given up when the list is full, the index is past its end, or
  // a step failed (the row then stays with what was written).
  Outcome AddFile(const std::string& filename, int Index, int OrigIndex);

  // Expands what the user named (an audio file, a folder with all below it, a playlist) into rows before row
  // `InsertPoint`, which becomes the end of the list if it is below 1. Done when at least one row was added, not when
  // the user stops it: the list is as it was then. After a playlist its folder is the current one.
  Outcome AddStuff(std::string filename, bool ReSelect, int& InsertPoint);
  Outcome AddStuff(const std::string& filename, bool ReSelect) {
    int at_the_end = 0;
    return AddStuff(filename, ReSelect, at_the_end);
  }

  // Adds the rows of a playlist that this program wrote for itself at the end of the list (see ReadOwnPlaylist), else
  // as AddStuff does.
  Outcome AddOwnPlaylist(const std::string& path);
  // Of the last call of AddStuff. The form that a playlist came in (see FormToKeep):
  const std::optional<PlaylistForm>& LastForm() const { return last_form_; }
  // What didn't come into the list. A remark tells of it, for all calls of a command; of lines without room it tells
  // nothing.
  const LeftOut& LastLeftOut() const { return left_out_; }

  // Appends the full paths of all rows (`Mode` True) or of the selected ones to `FileArray`.
  void SaveFileArrayFromList(bool Mode);
  // Makes a row of each path in `FileArray`, in their order, before row `InsertPoint` (1 or more), behind the
  // `Status` progress window. What doesn't fit the list is left out; no row comes when the user stops it.
  void LoadFileArrayToList(int InsertPoint);

  // Whether the user has stopped what the last call did.
  bool Stopped() const { return feedback_.Stopped(); }

  // "Select &None".
  void MEditSelNone_Click();
  // "Refresh": reads every row from disk again; the current order becomes the original one, marks are lost.
  void MViewRefresh_Click();

 private:
  Outcome AddRows(bool ReSelect, int& InsertPoint, const std::function<void()>& add);
  void TellWhatIsLeftOut();
  void AddByKind(const FileDetails& details, int InsertPoint);
  void AddPlaylist(const std::string& path, int InsertPoint);
  void AddFolder(const std::string& folder, int InsertPoint);
  void AddFromFileArray(BatchReader& reader, std::size_t from);
  void LoadFileArray(int InsertPoint, const KeptLines& lines);
  // The progress counts `further` items too, which aren't in `FileArray`.
  void LoadRows(int InsertPoint, BatchReader::MakeRow make_row, std::size_t further = 0);
  void LoadBatch(BatchReader& reader, int InsertPoint, std::size_t further = 0);
  void SelectRowRange(int first, int last);

  Document& document_;
  FileSystem& files_;
  Feedback& feedback_;
  MainView& view_;
  std::string thousands_separator_;
  std::optional<PlaylistForm> last_form_;
  LeftOut left_out_;
  LeftOut left_out_by_command_;
  int command_ = 0;  // that this is of, as the feedback counts
};

}  // namespace qublet
