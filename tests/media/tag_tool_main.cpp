// What we make of tags, for other programs to judge:
//
//   tag_tool read FILE...           a line of JSON a file
//   tag_tool same FILE...           takes every value out and puts it back in, as the editor does, then writes both
//                                   tags
//   tag_tool set ID TEXT FILE...    the same with one frame changed; ID may also be V1Title, Mood, Comment or Cover
//   tag_tool remove v1|v2 FILE...
//
// The exit code is 1 when a file failed, and its path goes to the standard error output.

#include <functional>
#include <iostream>
#include <span>
#include <string>
#include <vector>

#include "cli/json_text.h"
#include "media/tag_file.h"
#include "media/tag_object.h"

namespace qublet {
namespace {

constexpr const char* kFrames[] = {"TIT2", "TPE1", "TALB", "TYER", "TRCK", "TCON", "TCOM",
                                   "TOPE", "TCOP", "TENC", "WXXX", "WOAR", "TXXX", "USLT"};

void PrintTags(const TagObject& tag) {
  std::cout << "{\"has_v1\": " << (tag.HasID3v1() ? "true" : "false") << ", \"v1\": [" << JsonText(tag.V1Title())
            << ", " << JsonText(tag.V1Artist()) << ", " << JsonText(tag.V1Album()) << ", " << JsonText(tag.V1Year())
            << ", " << JsonText(tag.V1Comment()) << ", " << int{tag.V1Track()} << ", " << int{tag.V1Genre()}
            << "], \"has_v2\": " << (tag.HasID3v2() ? "true" : "false") << ", \"frames\": {";
  for (const char* id : kFrames)
    std::cout << (id == kFrames[0] ? "" : ", ") << JsonText(id) << ": " << JsonText(tag.Frame(id));
  std::cout << "}, \"properties\": [" << JsonText(tag.Preference()) << ", " << JsonText(tag.Mood()) << ", "
            << JsonText(tag.Tempo()) << ", " << JsonText(tag.Situation()) << "], \"comments\": [";
  const char* separator = "";
  for (const TagComment& comment : tag.Comments()) {
    std::cout << separator << "[" << JsonText(comment.description) << ", " << JsonText(comment.text) << "]";
    separator = ", ";
  }
  std::cout << "], \"images\": [";
  separator = "";
  for (const TagPicture& picture : tag.Images()) {
    std::cout << separator << "[" << JsonText(picture.description) << ", " << picture.data.size() << ", "
              << JsonText(picture.mime_type) << "]";
    separator = ", ";
  }
  std::cout << "]}\n";
}

// All that the form holds goes back into the tag, whether it changed or not.
void PutBack(TagObject& tag) {
  const auto comments = tag.Comments().All();
  const auto images = tag.Images().All();
  tag.Comments().Clear();
  tag.Images().Clear();
  tag.SetV1Title(tag.V1Title());
  tag.SetV1Artist(tag.V1Artist());
  tag.SetV1Album(tag.V1Album());
  tag.SetV1Year(tag.V1Year());
  tag.SetV1Comment(tag.V1Comment());
  tag.SetV1Track(tag.V1Track());
  tag.SetV1Genre(tag.V1Genre());
  for (const char* id : kFrames) tag.SetFrame(id, tag.Frame(id));
  tag.SetPreference(tag.Preference());
  tag.SetMood(tag.Mood());
  tag.SetTempo(tag.Tempo());
  tag.SetSituation(tag.Situation());
  for (const TagPicture& image : images) tag.Images().Append(image);
  for (const TagComment& comment : comments) tag.Comments().Add(comment.text, comment.description);
}

void Change(TagObject& tag, const std::string& field, const std::string& text) {
  if (field == "V1Title") {
    tag.SetV1Title(text);
  } else if (field == "V1AndV2Title") {
    tag.SetV1Title(text);
    tag.SetFrame("TIT2", text);
  } else if (field == "Mood") {
    tag.SetMood(text);
  } else if (field == "Comment") {
    tag.Comments().Add(text, "added");
  } else if (field == "Cover") {
    tag.Images().Append({text, "image/bmp", {'B', 'M', 1, 2, 3}});
  } else {
    tag.SetFrame(field, text);
  }
}

// `field` may be "", for no change at all. The tag that holds the field is there afterwards.
void Update(const FileSystem& files, const std::string& path, const std::string& field, const std::string& text) {
  TagObject tag(files);
  tag.PrepareFile(path);
  tag.ReadTags(path, false);
  const bool in_v1 = field.starts_with("V1");
  const bool v1 = tag.HasID3v1() || in_v1;
  const bool v2 = tag.HasID3v2() || (!in_v1 && !field.empty());
  PutBack(tag);
  if (!field.empty()) Change(tag, field, text);
  Outcome ok;
  WriteTagToFile(files, path, tag, v1, v2, ok);
  if (!ok) throw Failure(ok.Reason(), path);
}

bool ForEach(const FileSystem& files, std::span<char*> natives, const std::function<void(const std::string&)>& work) {
  bool all = true;
  for (const char* native : natives) {
    if (Guarded([&] { work(files.FromNative(native)); })) continue;
    std::cerr << native << "\n";
    all = false;
  }
  return all;
}

bool Run(std::span<char*> arguments) {
  const auto files = OpenFileSystem();
  const std::string command = arguments[1];
  if (command == "set") {
    const std::string field = arguments[2];
    const std::string text = arguments[3];
    return ForEach(*files, arguments.subspan(4), [&](const auto& path) { Update(*files, path, field, text); });
  }
  if (command == "remove") {
    const bool v1 = std::string(arguments[2]) == "v1";
    return ForEach(*files, arguments.subspan(3), [&](const auto& path) {
      TagObject tag(*files);
      v1 ? tag.RemoveID3v1(path) : tag.RemoveID3v2(path);
    });
  }
  if (command == "same") {
    return ForEach(*files, arguments.subspan(2), [&](const auto& path) { Update(*files, path, "", ""); });
  }
  return ForEach(*files, arguments.subspan(2), [&](const auto& path) {
    TagObject tag(*files);
    tag.ReadTags(path, false);
    PrintTags(tag);
  });
}

}  // namespace
}  // namespace qublet

int main(int count, char** arguments) {
  return qublet::Run({arguments, static_cast<std::size_t>(count)}) ? 0 : 1;
}
