#include "cli/tag_history.h"

#include <charconv>
#include <ostream>

#include "cli/json_text.h"
#include "media/editor/tag_journal.h"

namespace qublet {
namespace {

int NumberOf(const CommandContext& context, const std::string& run) {
  if (run == "last") {
    const std::optional<int> newest = NewestTagRun(context.files, "");
    if (!newest) throw Failure("no run can be undone");
    return *newest;
  }
  int number = 0;
  const char* const end = run.data() + run.size();
  const auto [stop, error] = std::from_chars(run.data(), end, number);
  if (error != std::errc() || stop != end) throw Failure("no such run: " + run);
  return number;
}

}  // namespace

int PrintTagHistory(CommandContext& context, bool json) {
  for (const TagRunFacts& run : TagRuns(context.files)) {
    const std::string number = std::to_string(run.number);
    const std::string files = std::to_string(run.files);
    if (json) {
      context.out << JsonRecord({{"Run", number, false},
                                 {"Time", run.time},
                                 {"Files", files, false},
                                 {"Origin", run.origin},
                                 {"Undone", run.undone ? "true" : "false", false}})
                  << "\n";
    } else {
      context.out << number << "\t" << run.time << "\t" << files << "\t" << run.origin << "\t"
                  << (run.undone ? "undone" : "") << "\n";
    }
  }
  return kDone;
}

int UndoTags(CommandContext& context, const std::string& run) {
  TagUndo undo;
  const Outcome outcome = Attempt([&] { undo = UndoTagRun(context.files, NumberOf(context, run)); });
  if (!outcome) return Complain(context.err, "tag: " + outcome.Reason(), kCouldNot);
  int code = kDone;
  for (const TagUndo::Left& file : undo.left) code = Complain(context.err, file.path + ": " + file.reason, kCouldNot);
  return code;
}

}  // namespace qublet
