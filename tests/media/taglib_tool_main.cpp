// What TagLib makes of tags.
//
// taglib_tool read FILE...   a line of JSON a file, of the shape that tag_tool gives
// taglib_tool dump FILE...   a line of JSON a file: every frame as [id:description:language, its content], and ID3v1
// taglib_tool title TEXT FILE...  changes the title and nothing else, in the safest way that it has
// taglib_tool make FOLDER    writes tags over the MP3 files of a folder, in as many ways as it has

#include <taglib/attachedpictureframe.h>
#include <taglib/commentsframe.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>
#include <taglib/popularimeterframe.h>
#include <taglib/privateframe.h>
#include <taglib/textidentificationframe.h>
#include <taglib/unsynchronizedlyricsframe.h>
#include <taglib/urllinkframe.h>

#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "cli/json_text.h"

using namespace TagLib;

namespace {

std::string Json(const String& text) {
  return qublet::JsonText(text.to8Bit(true));
}

template <typename Kind>
Kind* Described(const ID3v2::FrameList& list, bool first_does) {
  Kind* first = nullptr;
  for (auto* frame : list) {
    auto* kind = dynamic_cast<Kind*>(frame);
    if (kind != nullptr && kind->description().isEmpty()) return kind;
    if (first == nullptr) first = kind;
  }
  return first_does ? first : nullptr;
}

String Joined(StringList values) {
  while (!values.isEmpty() && values.back().isEmpty()) values.erase(--values.end());
  return values.toString("/");
}

String TextOf(ID3v2::Tag* tag, const char* id) {
  const auto& list = tag->frameList(id);
  if (list.isEmpty()) return {};
  const std::string name = id;
  if (name == "TXXX") {
    auto* frame = Described<ID3v2::UserTextIdentificationFrame>(list, false);
    if (frame == nullptr) return {};
    StringList values = frame->fieldList();
    if (!values.isEmpty()) values.erase(values.begin());
    return Joined(values);
  }
  if (name == "WXXX") {
    auto* frame = Described<ID3v2::UserUrlLinkFrame>(list, true);
    return frame != nullptr ? frame->url() : String();
  }
  if (name == "USLT") {
    auto* frame = Described<ID3v2::UnsynchronizedLyricsFrame>(list, true);
    return frame != nullptr ? frame->text() : String();
  }
  if (auto* frame = dynamic_cast<ID3v2::UrlLinkFrame*>(list.front())) return frame->url();
  if (auto* frame = dynamic_cast<ID3v2::TextIdentificationFrame*>(list.front())) return Joined(frame->fieldList());
  return {};
}

void PrintV1(MPEG::File& file) {
  const bool has = file.hasID3v1Tag();
  const ID3v1::Tag* tag = has ? file.ID3v1Tag() : nullptr;
  std::cout << "{\"has_v1\": " << (has ? "true" : "false") << ", \"v1\": [";
  if (has) {
    std::cout << Json(tag->title()) << ", " << Json(tag->artist()) << ", " << Json(tag->album()) << ", \""
              << (tag->year() != 0 ? std::to_string(tag->year()) : "") << "\", " << Json(tag->comment()) << ", "
              << tag->track() << ", " << tag->genreNumber();
  }
  std::cout << "]";
}

void PrintV2(MPEG::File& file) {
  std::cout << ", \"has_v2\": " << (file.hasID3v2Tag() ? "true" : "false") << ", \"frames\": {";
  ID3v2::Tag empty;
  ID3v2::Tag* tag = file.hasID3v2Tag() ? file.ID3v2Tag() : &empty;
  const char* separator = "";
  for (const char* id : {"TIT2", "TPE1", "TALB", "TYER", "TRCK", "TCON", "TCOM", "TOPE", "TCOP", "TENC", "WXXX",
                         "WOAR", "TXXX", "USLT"}) {
    const bool year = std::string(id) == "TYER";
    std::cout << separator << "\"" << id << "\": " << Json(TextOf(tag, year ? "TDRC" : id));
    separator = ", ";
  }
  std::cout << "}, \"comments\": [";
  separator = "";
  for (auto* frame : tag->frameList("COMM")) {
    const auto* comment = dynamic_cast<ID3v2::CommentsFrame*>(frame);
    if (comment == nullptr) continue;
    std::cout << separator << "[" << Json(comment->description()) << ", " << Json(comment->text()) << "]";
    separator = ", ";
  }
  std::cout << "], \"images\": [";
  separator = "";
  for (auto* frame : tag->frameList("APIC")) {
    const auto* picture = dynamic_cast<ID3v2::AttachedPictureFrame*>(frame);
    if (picture == nullptr) continue;
    std::cout << separator << "[" << Json(picture->description()) << ", " << picture->picture().size() << ", "
              << Json(picture->mimeType()) << "]";
    separator = ", ";
  }
  std::cout << "]}\n";
}

std::string Digest(const ByteVector& bytes) {
  std::uint64_t sum = 14695981039346656037U;
  for (const char byte : bytes) sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
  const ByteVector start = bytes.mid(0, 24).toHex();
  return std::string(start.data(), start.size()) + " " + std::to_string(bytes.size()) + " " + std::to_string(sum);
}

// A frame's id, with the description and language that tell frames of one id apart, and what else it holds.
struct Reading {
  String key;
  std::string content;
};

Reading ReadingOf(const ID3v2::Frame& frame) {
  const String id(frame.frameID());
  const std::string text = frame.toString().to8Bit(true);
  if (auto* one = dynamic_cast<const ID3v2::CommentsFrame*>(&frame)) {
    return {id + ":" + one->description() + ":" + String(one->language()), text};
  }
  if (auto* one = dynamic_cast<const ID3v2::UnsynchronizedLyricsFrame*>(&frame)) {
    return {id + ":" + one->description() + ":" + String(one->language()), text};
  }
  if (auto* one = dynamic_cast<const ID3v2::UserTextIdentificationFrame*>(&frame)) {
    // It takes the text of a frame without a description for the description.
    StringList values = one->fieldList();
    if (values.size() < 2 || (values.size() == 2 && values[1].isEmpty()))
      return {id + ":", one->description().to8Bit(true)};
    return {id + ":" + one->description(), text};
  }
  if (auto* one = dynamic_cast<const ID3v2::UserUrlLinkFrame*>(&frame)) return {id + ":" + one->description(), text};
  if (auto* one = dynamic_cast<const ID3v2::UrlLinkFrame*>(&frame)) return {id, one->url().to8Bit(true)};
  if (auto* one = dynamic_cast<const ID3v2::TextIdentificationFrame*>(&frame)) {
    return {id, one->fieldList().toString("/").to8Bit(true)};
  }
  if (auto* one = dynamic_cast<const ID3v2::AttachedPictureFrame*>(&frame)) {
    return {id + ":" + one->description(), one->mimeType().to8Bit(true) + " " + Digest(one->picture())};
  }
  // What our writer keeps of ID3v2.2 in ID3v2.3: a frame with its id and size in front, or what stood behind the
  // frames.
  auto* own = dynamic_cast<const ID3v2::PrivateFrame*>(&frame);
  if (own != nullptr && own->owner() == "QUBLET_id3v22tail") return {"tail", Digest(own->data())};
  if (own != nullptr && own->owner() == "QUBLET_id3v22frame") {
    return {String(own->data().mid(0, 3)), Digest(own->data().mid(6))};
  }
  constexpr unsigned kHeader = 10;
  return {id, Digest(frame.render().mid(kHeader))};
}

void PrintAll(MPEG::File& file) {
  PrintV1(file);
  std::cout << ", \"frames\": [";
  const char* separator = "";
  ID3v2::FrameList none;
  for (auto* frame : file.hasID3v2Tag() ? file.ID3v2Tag()->frameList() : none) {
    const Reading reading = ReadingOf(*frame);
    std::cout << separator << "[" << Json(reading.key) << ", " << qublet::JsonText(reading.content) << "]";
    separator = ", ";
  }
  std::cout << "]}\n";
}

void SetTitle(MPEG::File& file, const String& title) {
  ID3v2::Tag* tag = file.ID3v2Tag(true);
  const auto version = tag->header()->majorVersion() == 4 && file.hasID3v2Tag() ? ID3v2::v4 : ID3v2::v3;
  tag->setTitle(title);
  const bool saved = file.save(MPEG::File::ID3v2, File::StripNone, version, File::DoNotDuplicate);
  std::cout << (saved ? "done\n" : "refused\n");
}

void AddText(ID3v2::Tag* tag, const char* id, const String& text, String::Type encoding) {
  auto* frame = new ID3v2::TextIdentificationFrame(id, encoding);
  frame->setText(text);
  tag->addFrame(frame);
}

void AddFrames(ID3v2::Tag* tag, String::Type encoding, const String& suffix) {
  for (const char* id : {"TIT2", "TPE1", "TALB", "TRCK", "TCOM", "TOPE", "TCOP", "TENC"}) {
    AddText(tag, id, String(id) + suffix, encoding);
  }
  AddText(tag, "TDRC", "1999", encoding);
  AddText(tag, "TCON", "Something else", encoding);
  auto* user_text = new ID3v2::UserTextIdentificationFrame(encoding);
  user_text->setDescription("described");
  user_text->setText("text" + suffix);
  tag->addFrame(user_text);
  auto* url = new ID3v2::UserUrlLinkFrame(encoding);
  url->setUrl("http://example.org/");
  tag->addFrame(url);
  auto* lyrics = new ID3v2::UnsynchronizedLyricsFrame(encoding);
  lyrics->setLanguage("deu");
  lyrics->setText("la\nla" + suffix);
  tag->addFrame(lyrics);
  for (const char* description : {"", "first", "MusicMatch_Mood"}) {
    auto* comment = new ID3v2::CommentsFrame(encoding);
    comment->setDescription(description);
    comment->setText(String("comment") + suffix);
    tag->addFrame(comment);
  }
  auto* picture = new ID3v2::AttachedPictureFrame;
  picture->setMimeType("image/png");
  picture->setDescription("cover" + suffix);
  picture->setTextEncoding(encoding);
  picture->setPicture(ByteVector("\x89PNG not really", 15));
  tag->addFrame(picture);
  auto* rating = new ID3v2::PopularimeterFrame;
  rating->setRating(128);
  tag->addFrame(rating);
  auto* own = new ID3v2::PrivateFrame;
  own->setOwner("somebody");
  own->setData(ByteVector("\xFF\xFB\x00\xFF", 4));
  tag->addFrame(own);
}

// The number in the file's name chooses the way.
void Make(const std::filesystem::path& path, int number) {
  constexpr String::Type kEncodings[] = {String::Latin1, String::UTF16, String::UTF16BE, String::UTF8};
  MPEG::File file(path.c_str(), false);
  const bool newest = number % 2 == 0;
  const auto encoding = kEncodings[number / 2 % 4];
  const bool letters = number / 8 % 2 == 1 && encoding != String::Latin1;
  AddFrames(file.ID3v2Tag(true), encoding, letters ? String(L" Привет 😀") : String(" plain"));
  const auto version = newest ? ID3v2::v4 : ID3v2::v3;
  file.save(MPEG::File::ID3v2, File::StripNone, version, File::DoNotDuplicate);
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> words(arguments + 1, arguments + count);
  if (words.at(0) == "make") {
    for (int number = 0; number < 16; ++number) {
      Make(std::filesystem::path(words.at(1)) / ("taglib_" + std::to_string(number) + ".mp3"), number);
    }
    return 0;
  }
  for (std::size_t i = words[0] == "title" ? 2 : 1; i < words.size(); ++i) {
    MPEG::File file(words[i].c_str(), false);
    if (words[0] == "title") {
      SetTitle(file, String(words[1], String::UTF8));
    } else if (words[0] == "dump") {
      PrintAll(file);
    } else {
      PrintV1(file);
      PrintV2(file);
    }
  }
}
