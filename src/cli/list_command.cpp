#include "cli/list_command.h"

#include <algorithm>
#include <ostream>

#include "cli/json_text.h"
#include "platform/program.h"
#include "playlist/paths/file_details.h"

namespace qublet {
namespace {

// A cell can't hold the marks that part cells and rows.
std::string Plain(std::string cell) {
  std::replace_if(
      cell.begin(), cell.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return cell;
}

void PrintTable(const RowStore& rows, std::ostream& out) {
  for (int column = 0; column < kColumnCount; ++column) {
    out << (column > 0 ? "\t" : "") << kColumns[static_cast<std::size_t>(column)].header;
  }
  out << "\n";
  for (int i = 1; i <= rows.Count(); ++i) {
    for (int column = 0; column < kColumnCount; ++column) {
      out << (column > 0 ? "\t" : "") << Plain(rows.At(i).cells[static_cast<std::size_t>(column)]);
    }
    out << "\n";
  }
}

void PrintJson(const RowStore& rows, std::ostream& out) {
  for (int i = 1; i <= rows.Count(); ++i) {
    const Row& row = rows.At(i);
    out << "{";
    for (std::size_t column = 0; column < kColumns.size(); ++column) {
      out << JsonText(kColumns[column].header) << ": " << JsonText(row.cells[column]) << ", ";
    }
    out << "\"State\": " << static_cast<int>(row.icon) << "}\n";
  }
}

// Adds what one path holds; gives what there is to complain of, "" for nothing.
std::string AddPath(Engine& engine, const std::string& path, const std::string& typed) {
  Document& document = engine.document;
  const RowStore& rows = document.ListView1;
  const int before = rows.Count();
  DestroyFileArray(document);
  engine.items.AddStuff(path, false);
  // A file that holds no sound is a row too.
  const int added = rows.Count() - before;
  const bool all_of_it = document.FileArray.size() <= static_cast<std::size_t>(added);
  if (added > 0 && (all_of_it || rows.Count() < RowStore::MaxRows)) return "";
  if (rows.Count() < RowStore::MaxRows) return "nothing to list in: " + typed;
  return "the list ends at row " + std::to_string(rows.Count()) + ", left out: the rest of " + typed;
}

}  // namespace

bool AddPaths(CommandContext& context, const Arguments& paths) {
  // Playlists change the current folder: what the user typed counts from the folder of the start.
  Collection absolute;
  bool all_there = true;
  for (const std::string& path : paths) {
    std::string found;
    ResumeNext([&] { found = PathFromArgument(context.files, path); });
    if (!FileExists(context.files, found)) {
      Complain(context.err, "no such file or folder: " + path, kCouldNot);
      all_there = false;
      found.clear();
    }
    absolute.push_back(found);
  }
  for (std::size_t i = 0; i < absolute.size(); ++i) {
    if (absolute[i].empty()) continue;
    const std::string complaint = AddPath(context.engine, absolute[i], paths[i]);
    if (complaint.empty()) continue;
    Complain(context.err, complaint, kCouldNot);
    all_there = false;
  }
  return all_there;
}

int ListCommand(CommandContext& context) {
  const bool json = TakeOption(context.arguments, "--json");
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) return Complain(context.err, "list: unknown option " + unknown, kWrongUse);
  if (context.arguments.empty()) return Complain(context.err, "list: a path is wanted", kWrongUse);

  const bool all_there = AddPaths(context, context.arguments);
  const RowStore& rows = context.engine.document.ListView1;
  json ? PrintJson(rows, context.out) : PrintTable(rows, context.out);
  return all_there ? kDone : kCouldNot;
}

}  // namespace qublet
