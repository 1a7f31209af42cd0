#include "cli/list_command.h"

#include <ostream>

#include "cli/json_text.h"
#include "playlist/items.h"
#include "playlist/paths/file_details.h"

namespace qublet {
namespace {

void PrintTable(const RowStore& rows, std::ostream& out) {
  for (int column = 0; column < kColumnCount; ++column) {
    out << (column > 0 ? "\t" : "") << kColumns[static_cast<std::size_t>(column)].header;
  }
  out << "\n";
  for (int i = 1; i <= rows.Count(); ++i) {
    for (int column = 0; column < kColumnCount; ++column) {
      out << (column > 0 ? "\t" : "") << PlainValue(rows.At(i).cells[static_cast<std::size_t>(column)]);
    }
    out << "\n";
  }
}

void PrintJson(const RowStore& rows, std::ostream& out) {
  for (int i = 1; i <= rows.Count(); ++i) {
    const Row& row = rows.At(i);
    Record record;
    for (std::size_t column = 0; column < kColumns.size(); ++column) {
      record.push_back({std::string(kColumns[column].header), row.cells[column]});
    }
    record.push_back({"State", std::to_string(static_cast<int>(row.icon)), false});
    out << JsonRecord(record) << "\n";
  }
}

// Adds what one path holds, all of it.
Outcome AddPath(Document& document, FileSystem& files, const std::string& path) {
  Feedback feedback;
  MainView view;
  Items items(document, files, feedback, view, ",");
  const RowStore& rows = document.ListView1;
  const int before = rows.Count();
  DestroyFileArray(document);
  const Outcome added = items.AddStuff(path, false);
  const bool all_of_it = document.FileArray.size() <= static_cast<std::size_t>(rows.Count() - before);
  if ((added && all_of_it) || rows.Count() < RowStore::MaxRows) return added;
  return Outcome::GivenUp("the list ends at row " + std::to_string(rows.Count()) + ", the rest is left out");
}

}  // namespace

bool AddPaths(Document& document, CommandContext& context, const Arguments& paths) {
  // Playlists change the current folder: what the user typed counts from the folder of the start.
  Collection absolute;
  bool all_there = true;
  for (const std::string& path : paths) {
    std::string found;
    const Outcome named = Attempt([&] { found = PathFromArgument(context.files, path); });
    if (!FileExists(context.files, found)) {
      Complain(context.err, path + ": " + (named ? "no such file or folder" : named.Reason()), kCouldNot);
      all_there = false;
      found.clear();
    }
    absolute.push_back(found);
  }
  for (std::size_t i = 0; i < absolute.size(); ++i) {
    if (absolute[i].empty()) continue;
    const Outcome added = AddPath(document, context.files, absolute[i]);
    if (added) continue;
    Complain(context.err, paths[i] + ": " + added.Reason(), kCouldNot);
    all_there = false;
  }
  return all_there;
}

int ListCommand(CommandContext& context) {
  const bool json = TakeOption(context.arguments, "--json");
  const std::string unknown = UnknownOption(context.arguments);
  if (!unknown.empty()) return Complain(context.err, "list: unknown option " + unknown, kWrongUse);
  if (context.arguments.empty()) return Complain(context.err, "list: a path is wanted", kWrongUse);

  Document document;
  const bool all_there = AddPaths(document, context, context.arguments);
  json ? PrintJson(document.ListView1, context.out) : PrintTable(document.ListView1, context.out);
  return all_there ? kDone : kCouldNot;
}

}  // namespace qublet
