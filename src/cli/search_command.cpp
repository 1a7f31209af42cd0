#include "cli/search_command.h"

#include <algorithm>
#include <ostream>

#include "cli/json_text.h"
#include "cli/list_command.h"
#include "playlist/paths/text.h"
#include "tools/search/search_rows.h"

namespace qublet {
namespace {

std::size_t ColumnNamed(const std::string& word) {
  const auto* const found = std::ranges::find(kSearchColumns, std::string_view(word), &SearchColumn::word);
  if (found == kSearchColumns.end()) throw Failure("there is no column " + word);
  return static_cast<std::size_t>(found - kSearchColumns.begin());
}

SearchOptions TakeSearchOptions(Arguments& arguments) {
  SearchOptions options;
  const auto columns = TakeValue(arguments, "--in");
  options.Mcasesensitive = TakeOption(arguments, "--case");
  if (columns) {
    options.columns.fill(false);
    for (const std::string& word : Split(*columns, ',')) options.columns.at(ColumnNamed(word)) = true;
  }
  return options;
}

}  // namespace

int SearchCommand(CommandContext& context) {
  Arguments& arguments = context.arguments;
  SearchOptions options;
  const Outcome taken = Attempt([&] { options = TakeSearchOptions(arguments); });
  if (!taken) return Complain(context.err, "search: " + taken.Reason(), kWrongUse);
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) return Complain(context.err, "search: unknown option " + unknown, kWrongUse);
  if (arguments.size() < 2) return Complain(context.err, "search: a text and a path are wanted", kWrongUse);
  if (arguments[0].empty()) return Complain(context.err, "search: the text is empty", kWrongUse);

  const bool all_there = AddPaths(context, {arguments.begin() + 1, arguments.end()});
  const RowStore& rows = context.engine.document.ListView1;
  for (const std::int16_t number : SearchRows(rows, arguments[0], options, true))
    context.out << number << "\t" << PlainValue(rows.At(number).FullPath()) << "\n";
  return all_there ? kDone : kCouldNot;
}

}  // namespace qublet
