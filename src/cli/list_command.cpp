#include "cli/list_command.h"

#include <functional>
#include <ostream>

#include "cli/json_text.h"
#include "platform/program.h"
#include "playlist/expansion.h"
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

// What one path came to.
struct Taken {
  Outcome outcome;
  WalkGaps gaps;
};

// Why not all of a playlist or folder is taken. `full`: the list has no more room.
Outcome TakenInPart(const LeftOut& left_out, bool full) {
  std::string reason;
  if (full) reason = "the list ends at row " + std::to_string(RowStore::MaxRows) + ", the rest is left out";
  if (!full && left_out.further_lines > 0) reason = "the list ends at 64 MiB of paths, the rest is left out";
  return Outcome::GivenUp(JoinedRemarks(reason, LongLinesText(left_out.long_lines)));
}

// Adds what one path holds, all of it.
Outcome AddPath(Engine& engine, const std::string& path) {
  Document& document = engine.document;
  const RowStore& rows = document.ListView1;
  const int before = rows.Count();
  DestroyFileArray(document);
  const Outcome outcome = engine.items.AddStuff(path, false);
  const int added = rows.Count() - before;
  const LeftOut& left_out = engine.items.LastLeftOut();
  const bool found_room = left_out.further_lines == 0 && document.FileArray.size() <= static_cast<std::size_t>(added);
  const bool all_of_it = found_room && left_out.long_lines == 0;
  // A list that holds all of one playlist goes back there in the form that it came in.
  if (before == 0 && added > 0 && all_of_it && engine.items.LastForm()) {
    document.CurrentPlaylist = path;
    document.CurrentForm = engine.items.LastForm();
  }
  const bool full = rows.Count() == RowStore::MaxRows && (added == 0 || !found_room);
  if (full || left_out.OfPlaylists()) return TakenInPart(left_out, full);
  return added > 0 ? Outcome() : outcome;  // a file that holds no sound is a row too
}

// Calls `take` with each path that is there. False when one isn't or can't be taken: each is told, the others are
// taken all the same.
bool ForEachPath(CommandContext& context, const Arguments& paths,
                 const std::function<Taken(const std::string& path)>& take) {
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
    const Taken taken = take(absolute[i]);
    if (const std::string gaps = GapsText(taken.gaps); !gaps.empty()) {
      Complain(context.err, paths[i] + ": " + gaps, kCouldNot);
      context.incomplete = true;
    }
    if (taken.outcome) continue;
    Complain(context.err, paths[i] + ": " + taken.outcome.Reason(), kCouldNot);
    all_there = false;
  }
  return all_there;
}

}  // namespace

bool AddPaths(CommandContext& context, const Arguments& paths) {
  return ForEachPath(context, paths, [&](const std::string& path) {
    const Outcome added = AddPath(context.engine, path);
    return Taken{added, context.engine.items.LastLeftOut().walk};
  });
}

bool ExpandPaths(CommandContext& context, const Arguments& arguments, Collection& paths) {
  return ForEachPath(context, arguments, [&](const std::string& path) {
    LeftOut left_out;
    const Outcome found = ExpandStuff(context.files, context.engine.services.feedback, path, paths, left_out);
    constexpr std::size_t kRoom = RowStore::MaxRows;
    const bool full = paths.size() > kRoom || (paths.size() == kRoom && left_out.further_lines > 0);
    if (paths.size() > kRoom) paths.resize(kRoom);
    return Taken{full || left_out.OfPlaylists() ? TakenInPart(left_out, full) : found, left_out.walk};
  });
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
