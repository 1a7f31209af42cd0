#include "cli/tag_command.h"

#include <ostream>

#include "cli/tag_history.h"
#include "cli/tag_options.h"
#include "cli/tag_pictures.h"
#include "cli/tag_positions.h"
#include "cli/tag_report.h"
#include "media/editor/tag_form.h"
#include "media/editor/tag_journal.h"
#include "media/editor/tag_run.h"
#include "media/tag_file.h"
#include "media/track_titles.h"
#include "media/vorbis_comments.h"
#include "platform/program.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool IsOgg(const std::string& path) {
  return LowerCase(GetExtension(GetFileName(path))) == ".ogg";
}

// Drive form of a file that is there. Throws Failure.
std::string FileAt(const CommandContext& context, const std::string& argument) {
  std::string path = PathFromArgument(context.files, argument);
  context.files.FileLength(path);
  return path;
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
    return PrintComments(path, comments, options.json ? PagesOf(context, path, {}, comments) : FilePages{},
                         options.json, context.out);
  }
  TagObject tag(context.files);
  tag.ReadTags(path, false);
  ResumeNext([&] { tag.ReadStreamInfo(path); });
  PrintTags(path, tag, options.json ? PagesOf(context, path, tag.Stream(), {}) : FilePages{}, options.json,
            context.out);
}

int ShowAll(CommandContext& context, const TagOptions& options) {
  int code = kDone;
  for (const std::string& argument : context.arguments) {
    const Outcome shown = Attempt([&] { Show(context, FileAt(context, argument), options); });
    if (!shown) code = Complain(context.err, argument + ": " + shown.Reason(), kCouldNot);
  }
  return code;
}

int ChangeAll(CommandContext& context, const TagRun::Plan& plan) {
  int code = kDone;
  TagRun::Watch watch;
  watch.done = [&](const std::string& argument, const Outcome& outcome) {
    if (!outcome) code = Complain(context.err, argument + ": " + outcome.Reason(), kCouldNot);
  };
  TagRunRecord record(context.files, context.engine.services.clock, kCommandRun);
  TagRun(
      context.files, record, [&](const std::string& argument) { return plan(FileAt(context, argument)); }, watch)
      .Over(context.arguments);
  if (!record.Lost().empty()) Complain(context.err, "tag: this run can't be undone: " + record.Lost(), kDone);
  return code;
}

int CopyFrom(CommandContext& context, const std::string& source) {
  TagForm form;
  const Outcome read = Attempt([&] {
    TagObject tag(context.files);
    Outcome ok;
    GetID3Tag(context.files, FileAt(context, source), tag, ok);
    ok.OrThrow();
    if (!tag.HasID3v1() && !tag.HasID3v2()) throw Failure("has no tag to copy");
    ShowTag(tag, form);
  });
  if (!read) return Complain(context.err, source + ": " + read.Reason(), kCouldNot);
  return ChangeAll(context, [&](const std::string& path) { return PlanUpdate(context.files, path, form); });
}

int ChangeAttributes(CommandContext& context, const FileAttributeChanges& changes) {
  int code = kDone;
  for (const std::string& argument : context.arguments) {
    const Outcome changed = Attempt([&] {
      if (!ApplyFileAttributes(context.files, FileAt(context, argument), changes))
        throw Failure("the attributes can't be changed");
    });
    if (!changed) code = Complain(context.err, argument + ": " + changed.Reason(), kCouldNot);
  }
  return code;
}

}  // namespace

int TagCommand(CommandContext& context) {
  TagOptions options;
  const Outcome taken = Attempt([&] { options = TakeTagOptions(context); });
  if (!taken) return Complain(context.err, "tag: " + taken.Reason(), kWrongUse);
  if (options.history) return PrintTagHistory(context, options.json);
  if (options.undo) return UndoTags(context, *options.undo);
  if (options.copy_from) return CopyFrom(context, *options.copy_from);
  if (options.attributes) return ChangeAttributes(context, *options.attributes);
  if (options.extract_to) return ExtractPictures(context, *options.extract_to);
  if (options.positions) return PrintPositions(context, options.json);
  if (options.go_to) return GoToPosition(context, *options.go_to);
  const Outcome read = Attempt([&] { options.change.pictures = PicturesFrom(context, options.pictures); });
  if (!read) return Complain(context.err, read.Reason(), kCouldNot);
  if (options.change.IsNone()) return ShowAll(context, options);
  return ChangeAll(context,
                   [&](const std::string& path) { return PlanTagChange(context.files, path, options.change); });
}

}  // namespace qublet
