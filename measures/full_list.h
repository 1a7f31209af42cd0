#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/feedback.h"
#include "platform/file_system.h"
#include "playlist/document.h"
#include "playlist/items.h"
#include "playlist/main_view.h"

namespace qublet::measures {

// The rows of a list that can hold no more, in an order without rule; always the same. One name in ten has letters
// beyond ASCII, one row in five is marked.
const std::vector<Row>& FullListRows();

// A full list without a window.
class FullList {
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  Feedback feedback_;
  MainView view_;

 public:
  Document document;
  Items items{document, *files_, feedback_, view_, ","};

  // Lays the rows anew, selected as `selected` says of each row from 1.
  void Lay(const std::function<bool(int row)>& selected);
  // What the window shows of the rows, worked out.
  void Refresh() const;
};

// A command on a full list.
struct ListJob {
  std::string name;
  double goal;
  std::string action;                      // in the menus of the window; "" for none
  bool refreshes;                          // whether the status is worked out at its end
  std::function<bool(int row)> selected;   // before the command; row from 1
  std::function<void(FullList&)> command;  // by the rules of the program
  // The bare algorithm on an array of the rows, or of their keys: laid out by the first call, done by the second.
  std::function<std::function<void()>(std::vector<std::unique_ptr<Row>>& rows)> floor;
};

// Sorts, moves, shuffle, selections, removal.
const std::vector<ListJob>& ListJobs();

}  // namespace qublet::measures
