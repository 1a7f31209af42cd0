#include "tools/search/searcher.h"

#include <algorithm>

namespace qublet {

void Searcher::Activate() {
  SaveOriginalSelection();
  Change();
}

void Searcher::txtSearch_Change(const std::string& text) {
  text_ = text;
  Change();
}

void Searcher::Change() {
  SearchDirty = true;
  view.caption = SearchView::kCaption;
  view.usable = !text_.empty();
}

// Those of earlier activations stay.
void Searcher::SaveOriginalSelection() {
  const RowStore& rows = engine_.document.ListView1;
  for (int i = 1; i <= rows.Count(); ++i) {
    if (rows.At(i).selected) OriginalSelection.push_back(static_cast<std::int16_t>(i));
  }
}

void Searcher::RestoreOriginalSelection() {
  Select(OriginalSelection);
}

void Searcher::RunSearch() {
  SearchResults.clear();
  if (text_.empty()) {
    view.caption = "Enter a search string...";
    return;
  }
  SearchResults = SearchRows(engine_.document.ListView1, text_, view.options, !view.options.Mselonly);
  view.usable = !SearchResults.empty();
  if (view.usable) RememberSearchText(text_);
  view.caption = "Found: " + std::to_string(SearchResults.size()) + " Items.";
  CurrentHit = 0;
  SearchDirty = false;
}

void Searcher::RememberSearchText(const std::string& text) {
  if (std::ranges::find(view.history, text) == view.history.end()) view.history.push_back(text);
}

bool Searcher::HasHits() {
  if (SearchDirty) RunSearch();
  return !SearchResults.empty();
}

void Searcher::cmdSelAl_Click() {
  if (HasHits()) Select(SearchResults);
}

void Searcher::cmdNext_Click() {
  if (!HasHits()) return;
  const int hits = static_cast<int>(SearchResults.size());
  SelectHit(CurrentHit < hits ? CurrentHit + 1 : 1);
}

void Searcher::cmdBack_Click() {
  if (!HasHits()) return;
  const int hits = static_cast<int>(SearchResults.size());
  SelectHit(CurrentHit > 1 ? CurrentHit - 1 : hits);
}

void Searcher::SelectHit(int hit) {
  CurrentHit = hit;
  const std::int16_t number = SearchResults[static_cast<std::size_t>(hit - 1)];
  Select({number});
  view.caption = "Selected: " + std::to_string(hit) + "/" + std::to_string(SearchResults.size()) + " Items.";
  RowStore& rows = engine_.document.ListView1;
  if (number <= rows.Count()) rows.EnsureVisible(number);
}

void Searcher::Select(const RowNumbers& numbers) {
  RowStore& rows = engine_.document.ListView1;
  const RefreshOnce once(engine_.view);
  const RowStore::Bulk bulk(rows);
  engine_.items.MEditSelNone_Click();
  for (const std::int16_t number : numbers) {
    if (number <= rows.Count()) rows.SetSelected(number, true);
  }
}

void Searcher::cmdPreview_Click() {
  engine_.preview.Play(kPlaySelected);
}

void Searcher::Mselonly_Click(bool ticked) {
  view.options.Mselonly = ticked;
  Change();
}

void Searcher::Mcasesensitive_Click(bool ticked) {
  view.options.Mcasesensitive = ticked;
  Change();
}

void Searcher::Column_Click(std::size_t column, bool ticked) {
  view.options.columns.at(column) = ticked;
  Change();
}

void Searcher::MReselect_Click() {
  RestoreOriginalSelection();
  SearchDirty = true;
}

}  // namespace qublet
