#include "cli/bookmarks_command.h"

#include <algorithm>
#include <ostream>

#include "cli/list_command.h"
#include "generators/bookmarks/bookmark_titles.h"
#include "generators/bookmarks/categories.h"
#include "platform/program.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

// Where something goes wrong, the reason says more than the messages of the window.
Categories CategoriesOf(CommandContext& context) {
  context.dialogs.silent = true;
  return {context.files, context.dialogs, context.engine.program_folder};
}

int Answer(const CommandContext& context, const std::string& what, const Outcome& outcome) {
  return outcome ? kDone : Complain(context.err, what + ": " + outcome.Reason(), kCouldNot);
}

int ProvideDefault(const CommandContext& context, const Categories& categories) {
  return Answer(context, categories.PathOf("Default"), categories.ProvideDefault());
}

void PrintLines(const CommandContext& context, const Collection& lines) {
  for (const std::string& line : lines) context.out << line << "\n";
}

int List(CommandContext& context) {
  const Categories categories = CategoriesOf(context);
  const int code = ProvideDefault(context, categories);
  PrintLines(context, categories.ListCategories());
  return code;
}

int Show(CommandContext& context, const std::string& category) {
  const Categories categories = CategoriesOf(context);
  const int code = ProvideDefault(context, categories);
  Collection lines;
  const Outcome read = ReadLinesFromFile(context.files.OwnFiles(), lines, categories.PathOf(category));
  PrintLines(context, lines);
  return std::max(code, Answer(context, category, read));
}

int Add(CommandContext& context, const std::string& category, const Arguments& arguments) {
  const Categories categories = CategoriesOf(context);
  Collection paths;
  if (!ExpandPaths(context, arguments, paths)) return kCouldNot;
  const int code = ProvideDefault(context, categories);
  return std::max(code, Answer(context, category, categories.AddBookmarks(categories.PathOf(category), paths)));
}

// Nothing outside the folder of bookmarks is a category, whatever a name may lead to.
int Remove(CommandContext& context, const std::string& category) {
  const Categories categories = CategoriesOf(context);
  const std::string path = categories.PathOf(category);
  if (category.find_first_of("\\/") != std::string::npos || !context.files.Exists(path))
    return Complain(context.err, category + ": no such category", kCouldNot);
  if (categories.IsDefault(category)) return Complain(context.err, Categories::kCannotBeRemoved, kCouldNot);
  return Answer(context, category, DeleteFileSafe(context.files, path));
}

// One that was left out, with files as a shell lists them behind it, would cost the first of these.
bool IsMusic(const std::string& file) {
  return std::ranges::any_of(FileFilters(),
                             [&](const std::string& filter) { return MatchesWildcard(GetFileName(file), filter); });
}

int Titles(CommandContext& context, const std::string& file, const Arguments& arguments) {
  if (IsMusic(file)) return Complain(context.err, "bookmarks: " + file + " is no bookmark file", kWrongUse);
  std::string path;
  const Outcome named = Attempt([&] { path = PathFromArgument(context.files, file); });
  if (!named) return Answer(context, file, named);
  Collection paths;
  if (!ExpandPaths(context, arguments, paths)) return kCouldNot;
  if (context.files.Exists(path)) {
    const Outcome kept = CopyFileSafe(context.files, path, BackupOf(path));
    if (!kept) return Answer(context, BackupOf(file), kept);
  }
  return Answer(context, file, BuildBookmarkTitles(context.files, path, paths, context.engine.services.feedback));
}

}  // namespace

int BookmarksCommand(CommandContext& context) {
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) return Complain(context.err, "bookmarks: unknown option " + unknown, kWrongUse);
  const Arguments& arguments = context.arguments;
  const std::size_t count = arguments.size();
  const std::string verb = count == 0 ? "" : arguments[0];
  if (verb == "list" && count == 1) return List(context);
  if (count > 1 && arguments[1].empty()) return Complain(context.err, "bookmarks: a name is empty", kWrongUse);
  if (verb == "show" && count == 2) return Show(context, arguments[1]);
  if (verb == "add" && count > 2) return Add(context, arguments[1], {arguments.begin() + 2, arguments.end()});
  if (verb == "remove" && count == 2) return Remove(context, arguments[1]);
  if (verb == "titles" && count > 2) return Titles(context, arguments[1], {arguments.begin() + 2, arguments.end()});
  return Complain(context.err, "bookmarks: list, show, add, remove or titles is wanted; see 'qublet help'",
                  kWrongUse);
}

}  // namespace qublet
