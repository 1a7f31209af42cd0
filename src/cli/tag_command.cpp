#include "cli/tag_command.h"

#include <algorithm>
#include <optional>
#include <ostream>
#include <utility>

#include "cli/tag_fields.h"
#include "cli/tag_report.h"
#include "media/tag_file.h"
#include "media/track_titles.h"
#include "media/vorbis_comments.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

struct TagOptions {
  bool json = false;
  bool title = false;
  std::vector<std::pair<const TagField*, std::string>> settings;
  bool remove_v1 = false;
  bool remove_v2 = false;

  bool Changes() const { return !settings.empty() || remove_v1 || remove_v2; }
};

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

// Throws Failure with a text for the user.
TagOptions TakeOptions(Arguments& arguments) {
  TagOptions options;
  while (const auto setting = TakeValue(arguments, "--set")) {
    const std::size_t equals = setting->find('=');
    const TagField* field = FindTagField(setting->substr(0, equals));
    if (equals == std::string::npos || field == nullptr) throw Failure("no such field: " + *setting);
    options.settings.emplace_back(field, setting->substr(equals + 1));
  }
  while (const auto tag = TakeValue(arguments, "--remove")) {
    if (*tag != "v1" && *tag != "v2") throw Failure("--remove wants v1 or v2");
    (*tag == "v1" ? options.remove_v1 : options.remove_v2) = true;
  }
  options.json = TakeOption(arguments, "--json");
  options.title = TakeOption(arguments, "--title");
  const std::string unknown = UnknownOption(arguments);
  if (!unknown.empty()) throw Failure("unknown option " + unknown);
  if (arguments.empty()) throw Failure("a file is wanted");
  return options;
}

bool IsOgg(const std::string& path) {
  return LowerCase(GetExtension(GetFileName(path))) == ".ogg";
}

void Change(const FileSystem& files, const std::string& path, const TagOptions& options) {
  if (IsOgg(path)) throw Failure("OGG files can't be changed");
  TagObject tag(files);
  tag.PrepareFile(path);
  tag.ReadTags(path, false);
  bool v1 = tag.HasID3v1() && !options.remove_v1;
  bool v2 = tag.HasID3v2() && !options.remove_v2;
  for (const auto& [field, text] : options.settings) {
    field->set(tag, field->name, text);
    (field->in_v1 ? v1 : v2) = true;
  }
  Outcome ok;
  WriteTagToFile(files, path, tag, v1, v2, ok);
  ok.OrThrow();
}

void Show(CommandContext& context, const std::string& path, const TagOptions& options) {
  if (options.title) {
    context.out << (IsOgg(path) ? GetOggTrackTitle(context.files, path) : GetMp3TrackTitle(context.files, path))
                << "\n";
    return;
  }
  if (IsOgg(path)) {
    VorbisComments comments;
    ReadVorbisComments(context.files, path, comments);
    return PrintComments(path, comments, options.json, context.out);
  }
  TagObject tag(context.files);
  tag.ReadTags(path, false);
  ResumeNext([&] { tag.ReadStreamInfo(path); });
  PrintTags(path, tag, options.json, context.out);
}

}  // namespace

int TagCommand(CommandContext& context) {
  TagOptions options;
  try {
    options = TakeOptions(context.arguments);
  } catch (const Failure& failure) {
    return Complain(context.err, std::string("tag: ") + failure.what(), kWrongUse);
  }
  const auto batch = context.files.BeginBatch();
  int code = kDone;
  for (const std::string& argument : context.arguments) {
    try {
      const std::string path = PathFromArgument(context.files, argument);
      context.files.FileLength(path);
      options.Changes() ? Change(context.files, path, options) : Show(context, path, options);
    } catch (const Failure& failure) {
      code = Complain(context.err, argument + ": " + std::string(failure.Reason()), kCouldNot);
    }
  }
  return code;
}

}  // namespace qublet
