#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "playlist/document.h"

namespace qublet::measures {

// The rows of a list that can hold no more, in an order without rule; always the same. Every second one is selected.
std::vector<Row> FullListRows();

// A command on a full list.
struct ListJob {
  std::string name;
  std::function<bool(int row)> selected;        // before the command; row from 1
  std::function<void(Document& list)> command;  // by the rules of the program
  // The bare algorithm on an array of the rows, or of their keys: laid out by the first call, done by the second.
  std::function<std::function<void()>(std::vector<std::unique_ptr<Row>>& rows)> floor;
};

// Sorts by time and by name, moves, shuffle, selections, removal.
const std::vector<ListJob>& ListJobs();

}  // namespace qublet::measures
