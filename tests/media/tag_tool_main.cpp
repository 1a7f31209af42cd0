// What we make of tags, for other programs to judge:
//
//   tag_tool read FILE...           a line of JSON a file
//   tag_tool same FILE...           takes every value out and puts it back in, as the editor does, then writes both
//                                   tags
//   tag_tool set ID TEXT FILE...    the same with one frame changed
//   tag_tool remove v1|v2 FILE...
//   tag_tool batch                  each line of the standard input is one of these with a single file, its words
//                                   parted by tabs; answers a line each: what was read, "done" or "refused"
//
// ID may also be V1Title, V1AndV2Title, Mood, Comment or Cover (one more), Comments or Covers (the text of the first;
// none of them stays when it is ""). The exit code is 1 when a file failed, and its path goes to the standard error
// output.

#include <iostream>
#include <sstream>
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

// The first item's text becomes another one; without a text all go.
template <typename Items, typename Item>
void ChangeItems(Items& items, std::string Item::*where, const std::string& text) {
  auto all = items.All();
  if (text.empty()) all.clear();
  if (!all.empty()) all.front().*where = text;
  items.Assign(all);
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
  } else if (field == "Comments") {
    ChangeItems(tag.Comments(), &TagComment::text, text);
  } else if (field == "Covers") {
    ChangeItems(tag.Images(), &TagPicture::description, text);
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

using Words = std::vector<std::string>;

// How many words of a command stand before its files.
std::size_t LengthOf(const std::string& command) {
  return command == "set" ? 3 : command == "remove" ? 2 : 1;
}

void Apply(const FileSystem& files, const Words& words, const std::string& path) {
  if (words[0] == "set") {
    Update(files, path, words[1], words[2]);
  } else if (words[0] == "same") {
    Update(files, path, "", "");
  } else {
    TagObject tag(files);
    if (words[0] == "remove") {
      words[1] == "v1" ? tag.RemoveID3v1(path) : tag.RemoveID3v2(path);
      return;
    }
    tag.ReadTags(path, false);
    PrintTags(tag);
  }
}

Words Split(const std::string& line) {
  Words words;
  std::istringstream stream(line);
  for (std::string word; std::getline(stream, word, '\t');) words.push_back(word);
  return words;
}

void Batch(const FileSystem& files) {
  for (std::string line; std::getline(std::cin, line);) {
    const Words words = Split(line);
    const bool done = Guarded([&] { Apply(files, words, files.FromNative(words.at(LengthOf(words.at(0))))); });
    if (!done || words[0] != "read") std::cout << (done ? "done\n" : "refused\n");
  }
}

bool Run(const Words& words) {
  const auto files = OpenFileSystem();
  if (words.at(0) == "batch") {
    Batch(*files);
    return true;
  }
  bool all = true;
  for (std::size_t i = LengthOf(words[0]); i < words.size(); ++i) {
    if (Guarded([&] { Apply(*files, words, files->FromNative(words[i])); })) continue;
    std::cerr << words[i] << "\n";
    all = false;
  }
  return all;
}

}  // namespace
}  // namespace qublet

int main(int count, char** arguments) {
  return qublet::Run({arguments + 1, arguments + count}) ? 0 : 1;
}
