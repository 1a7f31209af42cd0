#pragma once

#include <string>
#include <vector>

#include "engine/engine.h"
#include "tools/search/search_rows.h"

namespace qublet {

// All that the search window shows besides the text in its box.
struct SearchView {
  static constexpr const char* kCaption = "Search Playlist...";

  std::string caption = kCaption;
  bool usable = false;               // cmdSelAl, cmdNext, cmdBack, cmdPreview
  std::vector<std::string> history;  // the texts that were found, in the order of their first search
  SearchOptions options;
  bool Mkeepalive = true;  // closing only hides the window
};

// The search window without its window. What it finds are numbers of rows as they stood then; those past the end of
// the list are passed over.
class Searcher {
 public:
  explicit Searcher(Engine& engine) : engine_(engine) {}

  SearchView view;

  // The window comes to the front.
  void Activate();
  void txtSearch_Change(const std::string& text);
  void cmdSelAl_Click();
  void cmdNext_Click();
  void cmdBack_Click();
  void cmdPreview_Click();

  void Mselonly_Click(bool ticked);
  void Mcasesensitive_Click(bool ticked);
  void Mkeepalive_Click(bool ticked) { view.Mkeepalive = ticked; }
  // `column`: the place in kSearchColumns.
  void Column_Click(std::size_t column, bool ticked);
  void MReselect_Click();

 private:
  void Change();
  void SaveOriginalSelection();
  void RestoreOriginalSelection();
  void RunSearch();
  void RememberSearchText(const std::string& text);
  bool HasHits();
  void SelectHit(int hit);
  void Select(const RowNumbers& numbers);

  Engine& engine_;
  std::string text_;  // in txtSearch
  RowNumbers SearchResults;
  RowNumbers OriginalSelection;
  int CurrentHit = 0;  // counted from 1; 0 before the first step
  bool SearchDirty = true;
};

}  // namespace qublet
