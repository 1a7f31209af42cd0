#include "playlist/items.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "playlist/expansion.h"
#include "playlist/foreign_lines.h"
#include "playlist/own_playlists.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/playlist_bounds.h"
#include "playlist/playlist_lines.h"
#include "playlist/row_filling.h"
#include "playlist/row_paths.h"
#include "playlist/stoppable_change.h"

namespace qublet {
namespace {

constexpr auto kRoom = static_cast<std::size_t>(RowStore::MaxRows);
static_assert(PlaylistBounds::kMostLines == kRoom);

}  // namespace

Outcome Items::AddFile(const std::string& filename, int Index, int OrigIndex) {
  RowStore& list = document_.ListView1;
  const int index = Index < 1 ? list.Count() + 1 : Index;
  std::vector<Row> rows(1);
  const Outcome filled =
      RowReader(files_, thousands_separator_).Read(filename, OrigIndex != 0 ? OrigIndex : index, rows.front());
  const Outcome inserted = Attempt([&] { list.Insert(index, std::move(rows)); });
  return inserted ? filled : inserted;
}

void Items::AddByKind(const FileDetails& details, int InsertPoint) {
  switch (KindOfStuff(details)) {
    case StuffKind::kNothing:
      break;
    case StuffKind::kAudioFile:
      AddFile(details.Path, InsertPoint, 0).OrThrow();
      break;
    case StuffKind::kFolder:
      AddFolder(details.Path, InsertPoint);
      break;
    case StuffKind::kPlaylist:
      files_.SetCurrentFolder(FolderOfPlaylist(details.Path));
      AddPlaylist(details.Path, InsertPoint);
      break;
  }
}

void Items::AddPlaylist(const std::string& path, int InsertPoint) {
  DestroyFileArray(document_);
  PlaylistLines playlist;
  const Outcome read = ReadPlaylist(files_, path, playlist, document_.FileArray);
  const std::size_t rows = document_.FileArray.size() + static_cast<std::size_t>(document_.ListView1.Count());
  left_out_.long_lines = playlist.long_lines;
  left_out_.further_lines = playlist.further_lines + (rows > kRoom ? rows - kRoom : 0);
  read.OrThrow();
  last_form_ = FormToKeep(files_, path, playlist.content);
  const auto source =
      std::make_shared<const KeptLine::Source>(KeptLine::Source{FolderOfPlaylist(path), playlist.native});
  const ForeignLines lines(files_, playlist, thousands_separator_);
  LoadRows(
      InsertPoint,
      [&](std::size_t place, const std::string& line_path, int original_order, Row& row) {
        if (lines.FillRow(place, line_path, original_order, row)) return;
        const std::string_view line = playlist.lines[place];
        row.kept = std::make_shared<const KeptLine>(
            KeptLine{std::string(line), source, lines.WholePathOf(line, row.FullPath())});
      },
      playlist.further_lines);
}

Outcome Items::AddStuff(std::string filename, bool ReSelect, int& InsertPoint) {
  last_form_.reset();
  left_out_ = {};
  const WaitCursor wait(feedback_);
  if (std::exchange(command_, feedback_.Command()) != feedback_.Command()) left_out_by_command_ = {};
  const Outcome added = AddRows(ReSelect, InsertPoint, [&] {
    FileDetails details;
    GetFileDetails(files_, filename, details);
    AddByKind(details, InsertPoint);
  });
  TellWhatIsLeftOut();
  return added;
}

// The activity of each further call takes the remark away, so all of it is told again.
void Items::TellWhatIsLeftOut() {
  left_out_by_command_ += left_out_;
  const std::string remark =
      JoinedRemarks(GapsText(left_out_by_command_.walk), LongLinesText(left_out_by_command_.long_lines));
  if (!remark.empty() && !Stopped()) feedback_.ShowRemark(remark);
}

Outcome Items::AddOwnPlaylist(const std::string& path) {
  int at_the_end = 0;
  return AddRows(false, at_the_end, [&] {
    DestroyFileArray(document_);
    ReadOwnPlaylist(files_.OwnFiles(), path, document_.FileArray).OrThrow();
    files_.SetCurrentFolder(FolderOfPlaylist(path));
    LoadFileArrayToList(at_the_end);
  });
}

Outcome Items::AddRows(bool ReSelect, int& InsertPoint, const std::function<void()>& add) {
  const WaitCursor wait(feedback_);
  RowStore& list = document_.ListView1;
  return Attempt([&] {
    const int before = list.Count();
    if (InsertPoint < 1) InsertPoint = before + 1;
    add();
    const int after = list.Count();
    if (after == before) throw Failure(Stopped() ? "stopped" : "nothing to list");
    if (ReSelect) {
      MEditSelNone_Click();
      SelectRowRange(InsertPoint - 1, after - before + InsertPoint - 1);
      list.EnsureVisible(InsertPoint);
    }
    document_.PlaylistChanged = true;
  });
}

void Items::SaveFileArrayFromList(bool Mode) {
  const WaitCursor wait(feedback_);
  AppendPaths(document_.ListView1, Mode ? WhichRows::kAll : WhichRows::kSelected, document_.FileArray);
}

void Items::LoadFileArrayToList(int InsertPoint) {
  LoadFileArray(InsertPoint, {});
}

void Items::LoadFileArray(int InsertPoint, const KeptLines& lines) {
  const RowReader rows(files_, thousands_separator_);
  LoadRows(InsertPoint, [&](std::size_t place, const std::string& path, int original_order, Row& row) {
    const bool found = rows.ReadAgain(path, original_order, row);
    if (!found && lines) row.kept = lines(place);
  });
}

void Items::LoadRows(int InsertPoint, BatchReader::MakeRow make_row, std::size_t further) {
  BatchReader reader(document_.ListView1.Count() + 1, std::move(make_row));
  AddFromFileArray(reader, 0);
  LoadBatch(reader, InsertPoint, further);
}

void Items::AddFolder(const std::string& folder, int InsertPoint) {
  DestroyFileArray(document_);
  BatchReader reader(files_, document_.ListView1.Count() + 1, thousands_separator_);
  std::size_t handed_over = 0;
  left_out_.walk = WalkFolder(files_, feedback_, folder, FileFilters(), document_.FileArray, true, false, [&] {
    AddFromFileArray(reader, handed_over);
    handed_over = document_.FileArray.size();
  });
  LoadBatch(reader, InsertPoint);
}

// "Original Order" is a 16-bit number: the items beyond it are refused one by one, which leaves the first ones.
void Items::AddFromFileArray(BatchReader& reader, std::size_t from) {
  const auto room = static_cast<std::size_t>(RowStore::MaxRows - document_.ListView1.Count());
  const std::span<const std::string> paths = document_.FileArray;
  const std::size_t end = std::min(paths.size(), room);
  if (from < end) reader.Add(paths.subspan(from, end - from));
}

void Items::LoadBatch(BatchReader& reader, int InsertPoint, std::size_t further) {
  const WaitCursor wait(feedback_);
  RowStore& list = document_.ListView1;
  if (Stopped()) return;
  feedback_.BeginProgress("Get File Info...", static_cast<int>(document_.FileArray.size() + further));
  const Outcome loaded = Attempt([&] {
    std::vector<std::unique_ptr<Row>> rows = reader.Finish(feedback_);
    // Without an insertion point each row would go to the end, the last one first.
    if (InsertPoint < 1) std::reverse(rows.begin(), rows.end());
    list.Adopt(InsertPoint < 1 ? list.Count() + 1 : InsertPoint, std::move(rows));
  });
  feedback_.EndProgress();
  loaded.MindMemory();
}

void Items::SelectRowRange(int first, int last) {
  {
    const WaitCursor wait(feedback_);
    const RowStore::Bulk bulk(document_.ListView1);
    for (int i = first + 1; i <= last; ++i) document_.ListView1.SetSelected(i, true);
  }
  view_.Refresh();
}

void Items::MEditSelNone_Click() {
  {
    const WaitCursor wait(feedback_);
    document_.ListView1.SelectWhere([](int, const Row&) { return false; });
  }
  view_.Refresh();
}

void Items::MViewRefresh_Click() {
  if (document_.ListView1.Count() == 0) return;
  const WaitCursor wait(feedback_);
  {
    const HiddenList hidden(view_);
    StoppableChange change(document_, feedback_);
    DestroyFileArray(document_);
    SaveFileArrayFromList(true);
    change.ClearList();
    LoadFileArray(1, [&](std::size_t place) { return change.Cleared()[place]->kept; });
  }
  if (!Stopped()) MEditSelNone_Click();
}

}  // namespace qublet
