#include "cli/tag_pictures.h"

#include <array>
#include <ostream>
#include <utility>

#include "media/id3/frame_content.h"
#include "platform/program.h"
#include "playlist/paths/path_text.h"

namespace qublet {
namespace {

constexpr const char* kLink = "-->";

constexpr std::array<std::pair<const char*, const char*>, 4> kExtensions{
    {{"image/bmp", ".bmp"}, {"image/jpeg", ".jpg"}, {"image/gif", ".gif"}, {"image/png", ".png"}}};

// By the bytes of a picture; "" for a kind that isn't known.
std::string ExtensionFor(BytesView picture) {
  const std::string type = MimeTypeOf(picture);
  for (const auto& [known, extension] : kExtensions) {
    if (type == known) return extension;
  }
  return "";
}

void WriteNew(const FileSystem& files, const std::string& path, BytesView bytes) {
  if (files.Attributes(path)) throw Failure(path + " is there already");
  const auto file = files.BeginReplacement(path);
  file->Write(bytes);
  file->Commit();
}

// Those that can be written; throws the first reason why one can't.
void ExtractFrom(CommandContext& context, const std::string& path, const std::string& folder) {
  TagObject tag(context.files);
  tag.ReadTags(path, false);
  const std::string name = GetFileName(path);
  const std::string stem = folder + "\\" + name.substr(0, name.size() - GetExtension(name).size());
  Outcome all;
  int number = 0;
  for (const TagPicture& picture : tag.Images()) {
    ++number;
    if (picture.mime_type == kLink) {
      Complain(context.err, path + ": picture " + std::to_string(number) + " is only a link", kDone);
      continue;
    }
    const std::string extension = ExtensionFor(picture.data);
    const std::string target = stem + "-" + std::to_string(number) + (extension.empty() ? ".bin" : extension);
    const Outcome written = Attempt([&] { WriteNew(context.files, target, picture.data); });
    if (written) context.out << target << "\n";
    if (all) all = written;
  }
  all.OrThrow();
}

}  // namespace

std::vector<TagPicture> PicturesFrom(const CommandContext& context, const std::vector<PictureOption>& options) {
  TagImages pictures(context.files);
  for (const PictureOption& option : options) {
    const Outcome added = Attempt([&] {
      pictures.Add(PathFromArgument(context.files, option.file), option.description);
      if (ExtensionFor(pictures.All().back().data).empty()) throw Failure("no BMP, JPEG, GIF or PNG");
    });
    if (!added) throw Failure(option.file + ": " + added.Reason());
  }
  return pictures.All();
}

int ExtractPictures(CommandContext& context, const std::string& folder) {
  std::string target;
  const Outcome found = Attempt([&] { target = NormalizedPath(FolderFromArgument(context, folder)); });
  if (!found) return Complain(context.err, folder + ": " + found.Reason(), kCouldNot);
  int code = kDone;
  for (const std::string& argument : context.arguments) {
    const Outcome extracted =
        Attempt([&] { ExtractFrom(context, PathFromArgument(context.files, argument), target); });
    if (!extracted) code = Complain(context.err, argument + ": " + extracted.Reason(), kCouldNot);
  }
  return code;
}

}  // namespace qublet
