#include "cli/tag_options.h"

#include <algorithm>
#include <utility>

#include "media/tpsi.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

// "NAME=TEXT" in two, at the first "=".
std::pair<std::string, std::string> Halves(const std::string& form, const std::string& argument) {
  const std::size_t equals = argument.find('=');
  if (equals == std::string::npos) throw Failure(form + ", not " + argument);
  return {argument.substr(0, equals), argument.substr(equals + 1)};
}

void TakeSettings(Arguments& arguments, TagChange& change) {
  while (const auto setting = TakeValues(arguments, "--set", 1)) {
    const auto [name, text] = Halves("--set wants FIELD=TEXT", setting->front());
    const TagField* field = FindTagField(name);
    if (field == nullptr) throw Failure("no such field: " + name);
    change.settings.emplace_back(field, text);
  }
  while (const auto tag = TakeValues(arguments, "--remove", 1)) {
    if (tag->front() != "v1" && tag->front() != "v2") throw Failure("--remove wants v1 or v2");
    (tag->front() == "v1" ? change.remove_v1 : change.remove_v2) = true;
  }
}

void TakeComments(Arguments& arguments, TagChange& change) {
  while (const auto argument = TakeValues(arguments, "--comment", 1)) {
    const auto [description, text] = Halves("--comment wants DESCRIPTION=TEXT", argument->front());
    if (description.empty()) throw Failure("--comment wants a description");
    if (description == kTpsiDescription) throw Failure(description + " is reserved; see --add-position");
    change.comments.push_back({description, text});
  }
}

// The record of "H:MM:SS".
std::string PositionFrom(const std::string& text) {
  int time[3] = {};
  const std::vector<std::string> parts = Split(text, ':');
  bool right = parts.size() == 3;
  for (std::size_t i = 0; i < 3 && right; ++i) {
    const std::string& part = parts[i];
    right = !part.empty() && part.size() <= 2 && part.find_first_not_of("0123456789") == part.npos;
    if (right) time[i] = std::stoi(part);
    right = right && time[i] < kTpsiEntries;
  }
  if (!right) throw Failure("--add-position wants H:MM:SS, each from 0 to 59, not " + text);
  if (time[0] + time[1] + time[2] == 0) throw Failure("the very start can't be a position");
  return TpsiRecord(time[0], time[1], time[2]);
}

// What may look like an option comes first.
TagChange TakeChange(Arguments& arguments, std::vector<PictureOption>& pictures) {
  TagChange change;
  while (const auto values = TakeValues(arguments, "--add-picture", 2))
    pictures.push_back({values->front(), values->back()});
  TakeSettings(arguments, change);
  TakeComments(arguments, change);
  while (const auto position = TakeValues(arguments, "--add-position", 1))
    change.positions.push_back(PositionFrom(position->front()));
  return change;
}

// From 1.
int NumberFrom(const std::string& text) {
  int number = 0;
  ResumeNext([&] { number = TextToInteger32(text); });
  if (number < 1 || std::to_string(number) != text) throw Failure("--goto wants a number from 1, not " + text);
  return number;
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
    if (!(changes.*(attribute->field)).empty()) throw Failure(words[0] + " is given twice");
    changes.*(attribute->field) = words[1];
  }
  return changes;
}

// How many things of which there can be one only are asked for.
int Purposes(const TagOptions& options) {
  return int{options.copy_from.has_value()} + int{options.attributes.has_value()} + int{options.history} +
         int{options.undo.has_value()} + int{options.extract_to.has_value()} + int{options.positions} +
         int{options.go_to.has_value()};
}

void RefuseMixtures(const TagOptions& options) {
  const bool changes = !options.change.IsNone() || !options.pictures.empty();
  const bool prints = options.title || (options.json && !options.history && !options.positions);
  if (Purposes(options) + int{changes} + int{prints} > 1 || (options.json && options.title))
    throw Failure("these options don't go together");
}

}  // namespace

TagOptions TakeTagOptions(CommandContext& context) {
  Arguments& arguments = context.arguments;
  TagOptions options;
  options.change = TakeChange(arguments, options.pictures);
  options.copy_from = TakeValue(arguments, "--copy-from");
  if (const auto attributes = TakeValue(arguments, "--attributes")) options.attributes = AttributesFrom(*attributes);
  options.extract_to = TakeValue(arguments, "--extract-pictures");
  if (const auto number = TakeValue(arguments, "--goto")) options.go_to = NumberFrom(*number);
  options.undo = TakeValue(arguments, "--undo");
  options.positions = TakeOption(arguments, "--positions");
  options.history = TakeOption(arguments, "--history");
  options.json = TakeOption(arguments, "--json");
  options.title = TakeOption(arguments, "--title");
  const std::string unknown = UnknownOption(context);
  if (!unknown.empty()) throw Failure("unknown option " + unknown);
  RefuseMixtures(options);
  const bool about_runs = options.history || options.undo;
  if (about_runs && !arguments.empty()) throw Failure("no file is wanted");
  if (!about_runs && arguments.empty()) throw Failure("a file is wanted");
  if (options.go_to && arguments.size() > 1) throw Failure("one file is wanted");
  return options;
}

}  // namespace qublet
