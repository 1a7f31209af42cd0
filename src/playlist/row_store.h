#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "playlist/columns.h"
#include "playlist/kept_line.h"

namespace qublet {

// The small icon of a row is its state. "Marked" means blue or above.
enum class RowIcon : std::uint8_t { kNormal = 1, kMissing = 2, kBlue = 3, kGreen = 4, kRed = 5 };

struct Row {
  std::array<std::string, kColumnCount> cells;  // by Column; the numbers are kept as text
  std::string key;
  std::string tag;
  RowIcon icon = RowIcon::kNormal;
  bool ghosted = false;
  bool selected = false;
  // For a row that came from a playlist and found no file; it goes when the path changes.
  std::shared_ptr<const KeptLine> kept;

  // Where the disk has the file under another name than the row's: the row's full path then, and the file's.
  struct RealFile {
    std::string path;
    std::string file;
  };
  std::shared_ptr<const RealFile> real;

  // The one way to get a path from a row.
  std::string FullPath() const {
    std::string path;
    path.reserve(cells[kPath].size() + cells[kFileName].size());
    return path.append(cells[kPath]).append(cells[kFileName]);
  }
  // The full path of the row's file also where the text isn't one (see KeptLine::whole): for what is stored.
  std::string WholePath() const { return kept && !kept->whole.empty() ? kept->whole : FullPath(); }
  // The path under which the disk has the file, as far as the row knows: for what reads, plays or changes the file.
  std::string RealPath() const {
    std::string path = FullPath();
    return real && real->path == path ? real->file : path;
  }
};

// Who shows the rows hears of each change here, after it is made. Rows are told apart by what they hold alone: when
// some come or go in the middle, others are at the end or no longer there, and the ones between have changed.
class RowListener {
 public:
  virtual ~RowListener() = default;
  virtual void CountChanged(int count) = 0;           // rows came at the end or went from it
  virtual void RowsChanged(int first, int last) = 0;  // cells, icons or selection of these rows
  virtual void FocusMoved() = 0;
  virtual void ShowRow(int index) = 0;  // scroll so that the row can be seen
};

// The rows of the playlist: the document itself. Rows are numbered from 1; every index out of range is a Failure.
// A change tells the listener at once, except inside a Bulk, at whose end the listener hears of all of it in one go.
class RowStore {
 public:
  static constexpr int MaxRows = 32767;

  RowStore() = default;
  RowStore(const RowStore&) = delete;
  RowStore& operator=(const RowStore&) = delete;

  // There is one at most: the present one goes (nullptr) before another comes; anything else is a mistake of the
  // program and throws std::logic_error.
  void SetListener(RowListener* listener);

  int Count() const { return static_cast<int>(rows_.size()); }
  const Row& At(int index) const { return *rows_[Place(index)]; }
  // For a loop over all paths, at each row: has the memory of those soon to come, scattered as rows are, ready by
  // then.
  void ExpectPaths(int index) const;

  // Inserts before row `index` (1 to Count() + 1), keeping the order of `rows`. Throws Failure when they don't all
  // fit; nothing is inserted then.
  void Insert(int index, std::vector<Row> rows);
  // Insert for rows that have their place in memory already and stay there.
  void Adopt(int index, std::vector<std::unique_ptr<Row>> rows);
  void Remove(int index);
  // Removes every row that `doomed` names; gives how many went. Linear in the rows.
  int RemoveIf(const std::function<bool(const Row&)>& doomed);
  void Clear() { TakeAll(); }
  // Clear that hands over the rows, in their order.
  std::vector<std::unique_ptr<Row>> TakeAll();
  // Row k becomes what row `order[k - 1]` was. Rows take their selected states along, the focus stays with its row;
  // one notice for all. Throws Failure unless `order` names each row once; nothing is moved then.
  void Reorder(const std::vector<int>& order);

  void SetCell(int index, int column, std::string text);
  void SetIcon(int index, RowIcon icon);
  void SetGhosted(int index, bool ghosted);
  void SetSelected(int index, bool selected);
  // Each row's selected state becomes what `wanted` answers for its index; one notice for all.
  void SelectWhere(const std::function<bool(int index, const Row& row)>& wanted);
  int SelectedCount() const;
  // Another number after each change of cells, of the rows' order, or of which rows there are.
  std::uint64_t Changes() const { return changes_; }

  // Exchanges all that two rows hold but their selected states. Row b ends selected, focused and shown.
  void SwapRows(int a, int b);

  // The focused row, 0 when there is none. It stays with its row when others come and go.
  int FocusedRow() const { return focused_; }
  void SetFocusedRow(int index);
  // Makes a row the focused one and scrolls to it.
  void EnsureVisible(int index);

  // While one lives the listener is not told of single changes.
  class Bulk {
   public:
    explicit Bulk(RowStore& rows) : rows_(rows) { ++rows_.bulk_; }
    ~Bulk() { rows_.EndBulk(); }
    Bulk(const Bulk&) = delete;
    Bulk& operator=(const Bulk&) = delete;

   private:
    RowStore& rows_;
  };

 private:
  // What the listener has to hear when the outermost Bulk ends.
  struct News {
    int first = 0;  // 0: no row has changed
    int last = 0;
    bool focus = false;
    int show = 0;
  };

  std::size_t Place(int index) const;
  void NoteChanged(int first, int last);
  void MoveFocus(int index);
  void EndBulk();
  void Tell(const News& news);

  std::vector<std::unique_ptr<Row>> rows_;
  RowListener* listener_ = nullptr;
  std::uint64_t changes_ = 0;
  int told_count_ = 0;
  int focused_ = 0;
  int bulk_ = 0;
  News news_;
};

}  // namespace qublet
