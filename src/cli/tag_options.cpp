#include "cli/tag_options.h"

#include <algorithm>

#include "playlist/paths/text.h"

namespace qublet {
namespace {

// Takes an option and the argument behind it; nothing when it isn't there (any more). Throws Failure when it is the
// last argument.
std::optional<std::string> TakeValue(Arguments& arguments, const std::string& option) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  const auto place = std::find(arguments.begin(), end, option);
  if (place == end) return std::nullopt;
  if (place + 1 == end) throw Failure(option + " wants something behind it");
  std::string value = place[1];
  arguments.erase(place, place + 2);
  return value;
}

TagChange TakeChange(Arguments& arguments) {
  TagChange change;
  while (const auto setting = TakeValue(arguments, "--set")) {
    const std::size_t equals = setting->find('=');
    if (equals == std::string::npos) throw Failure("--set wants FIELD=TEXT, not " + *setting);
    const std::string name = setting->substr(0, equals);
    const TagField* field = FindTagField(name);
    if (field == nullptr) throw Failure("no such field: " + name);
    change.settings.emplace_back(field, setting->substr(equals + 1));
  }
  while (const auto tag = TakeValue(arguments, "--remove")) {
    if (*tag != "v1" && *tag != "v2") throw Failure("--remove wants v1 or v2");
    (*tag == "v1" ? change.remove_v1 : change.remove_v2) = true;
  }
  return change;
}

struct AttributeName {
  const char* name;
  std::string FileAttributeChanges::*field;
};

constexpr AttributeName kAttributes[] = {{"normal", &FileAttributeChanges::normal},
                                         {"readonly", &FileAttributeChanges::read_only},
                                         {"archive", &FileAttributeChanges::archive},
                                         {"system", &FileAttributeChanges::system},
                                         {"hidden", &FileAttributeChanges::hidden}};

FileAttributeChanges AttributesFrom(const std::string& text) {
  FileAttributeChanges changes;
  for (const std::string& part : Split(text, ',')) {
    const std::vector<std::string> words = Split(part, '=');
    const auto* const attribute =
        std::ranges::find_if(kAttributes, [&](const AttributeName& row) { return words[0] == row.name; });
    if (words.size() != 2 || (words[1] != "SET" && words[1] != "CLR"))
      throw Failure("--attributes wants NAME=SET or NAME=CLR, not " + part);
    if (attribute == std::end(kAttributes)) throw Failure("no such attribute: " + words[0]);
    changes.*(attribute->field) = words[1];
  }
  return changes;
}

// How many things of which there can be one only are asked for.
int Purposes(const TagOptions& options) {
  return int{options.copy_from.has_value()} + int{options.attributes.has_value()} + int{options.history} +
         int{options.undo.has_value()};
}

void RefuseMixtures(const TagOptions& options) {
  const bool changes = !options.change.IsNone();
  const bool prints = options.title || (options.json && !options.history);
  if (Purposes(options) > 1 || (Purposes(options) == 1 && (changes || prints)))
    throw Failure("these options don't go together");
}

}  // namespace

TagOptions TakeTagOptions(CommandContext& context) {
  Arguments& arguments = context.arguments;
  TagOptions options;
  options.change = TakeChange(arguments);
  options.copy_from = TakeValue(arguments, "--copy-from");
  if (const auto attributes = TakeValue(arguments, "--attributes")) options.attributes = AttributesFrom(*attributes);
  options.undo = TakeValue(arguments, "--undo");
  options.history = TakeOption(arguments, "--history");
  options.json = TakeOption(arguments, "--json");
  options.title = TakeOption(arguments, "--title");
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) throw Failure("unknown option " + unknown);
  RefuseMixtures(options);
  const bool about_runs = options.history || options.undo;
  if (about_runs && !arguments.empty()) throw Failure("no file is wanted");
  if (!about_runs && arguments.empty()) throw Failure("a file is wanted");
  return options;
}

}  // namespace qublet
