#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "media/file_ends.h"
#include "media/id3/id3v1.h"
#include "media/id3/id3v2_tag.h"
#include "media/mpeg_stream.h"
#include "media/tag_write.h"
#include "platform/file_system.h"

namespace qublet {

// A list of comments or pictures as the tag editor knows it: items by number from 1, added at the end, cleared.
template <typename Item>
class TagItems {
 public:
  std::size_t Count() const { return items_.size(); }
  // Throws Failure when there is no such item.
  const Item& At(std::size_t index) const {
    if (index < 1 || index > items_.size()) throw Failure("no such item");
    return items_[index - 1];
  }
  void Append(Item item) { items_.push_back(std::move(item)); }
  void Clear() { items_.clear(); }
  void Assign(std::vector<Item> items) { items_ = std::move(items); }
  const std::vector<Item>& All() const { return items_; }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::vector<Item> items_;
};

class TagComments : public TagItems<TagComment> {
 public:
  void Add(const std::string& text, const std::string& description) { Append({description, text}); }
};

class TagImages : public TagItems<TagPicture> {
 public:
  explicit TagImages(const FileSystem& files) : files_(files) {}
  // Reads the picture file at once; its MIME type comes from its bytes. Throws Failure.
  void Add(const std::string& file, const std::string& description);

 private:
  const FileSystem& files_;
};

// Everything that is known of one file's tags and MPEG stream. Operations with a path throw Failure; what an object
// held of the part that was to be read is then gone.
class TagObject {
 public:
  explicit TagObject(const FileSystem& files) : files_(files), images_(files) {}

  // Nothing to be done ahead: ReadTags gives the full present state of a file.
  void PrepareFile(const std::string& path);
  // Both tags, and the stream facts as well when `with_stream`. Those of the file before are gone in any case, and a
  // file without an MPEG frame has none.
  void ReadTags(const std::string& path, bool with_stream);
  void ReadID3v1(const std::string& path);
  void ReadID3v2(const std::string& path);
  void ReadStreamInfo(const std::string& path);

  // The state of the file that ReadTags opened last.
  const std::optional<FileVersion>& Version() const { return version_; }

  bool HasID3v1() const { return has_v1_; }
  bool HasID3v2() const { return has_v2_; }

  // Works out how to write or strip the tags of a file. A file that has the wanted tag already isn't to be touched.
  // Writing always leaves a tag, if need be one with an empty title; it fails for an ID3v2 tag that can't be
  // understood or that claims to be longer than the file, which leaves the other step alone in the plan. A further
  // ID3v2 tag behind the first stays, while stripping takes all that stand in a row at the file's start.
  TagWrite Plan(const std::string& path, TagStep v1, TagStep v2) const;
  // Does so, both steps at once. When the ID3v2 step can't be worked out the other is done, and then it fails.
  void Write(const std::string& path, TagStep v1, TagStep v2);

  void WriteID3v1(const std::string& path) { Write(path, TagStep::kWrite, TagStep::kLeave); }
  void WriteID3v2(const std::string& path) { Write(path, TagStep::kLeave, TagStep::kWrite); }
  void RemoveID3v1(const std::string& path) { Write(path, TagStep::kRemove, TagStep::kLeave); }
  void RemoveID3v2(const std::string& path) { Write(path, TagStep::kLeave, TagStep::kRemove); }

  std::string V1Title() const { return v1_.Title(); }
  std::string V1Artist() const { return v1_.Artist(); }
  std::string V1Album() const { return v1_.Album(); }
  std::string V1Year() const { return v1_.Year(); }
  std::string V1Comment() const { return v1_.Comment(); }
  std::uint8_t V1Track() const { return v1_.Track(); }
  std::uint8_t V1Genre() const { return v1_.Genre(); }
  void SetV1Title(const std::string& text) { v1_.SetTitle(text); }
  void SetV1Artist(const std::string& text) { v1_.SetArtist(text); }
  void SetV1Album(const std::string& text) { v1_.SetAlbum(text); }
  void SetV1Year(const std::string& text) { v1_.SetYear(text); }
  void SetV1Comment(const std::string& text) { v1_.SetComment(text); }
  void SetV1Track(std::uint8_t track) { v1_.SetTrack(track); }
  void SetV1Genre(std::uint8_t genre) { v1_.SetGenre(genre); }

  // See Id3v2Tag.
  std::string Frame(std::string_view id) const { return v2_.Frame(id); }
  void SetFrame(std::string_view id, const std::string& text) { v2_.SetFrame(id, text); }
  std::string Preference() const { return v2_.Property(kPropertyDescriptions[0]); }
  std::string Mood() const { return v2_.Property(kPropertyDescriptions[1]); }
  std::string Tempo() const { return v2_.Property(kPropertyDescriptions[2]); }
  std::string Situation() const { return v2_.Property(kPropertyDescriptions[3]); }
  void SetPreference(const std::string& text) { v2_.SetProperty(kPropertyDescriptions[0], text); }
  void SetMood(const std::string& text) { v2_.SetProperty(kPropertyDescriptions[1], text); }
  void SetTempo(const std::string& text) { v2_.SetProperty(kPropertyDescriptions[2], text); }
  void SetSituation(const std::string& text) { v2_.SetProperty(kPropertyDescriptions[3], text); }

  TagComments& Comments() { return comments_; }
  const TagComments& Comments() const { return comments_; }
  TagImages& Images() { return images_; }
  const TagImages& Images() const { return images_; }

  // All zeros until the stream was read.
  const StreamFacts& Stream() const { return stream_; }

  // All genre names in the order of their numbers, from 0, with "|" between them.
  static std::string GenreList();

 private:
  void ForgetV1();
  void ForgetV2();
  void LoadV1(InputFile& file, const FileEnds& ends);
  void LoadV2(InputFile& file, const FileEnds& ends);
  void PlanID3v1(InputFile& file, const FileEnds& ends, TagStep step, EndsChange& change) const;
  void PlanID3v2(InputFile& file, const FileEnds& ends, TagStep step, EndsChange& change) const;
  // The tag with comments and pictures put in.
  Id3v2Tag Composed() const;

  const FileSystem& files_;
  bool has_v1_ = false;
  bool has_v2_ = false;
  Id3v1Tag v1_;
  Id3v2Tag v2_;
  TagComments comments_;
  TagImages images_;
  StreamFacts stream_;
  std::optional<FileVersion> version_;
};

}  // namespace qublet
