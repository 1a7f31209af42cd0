#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "media/tag_object.h"

namespace qublet {

// The boxes of the ID3v2 tag, in the order in which they are written.
enum Id3v2Box : std::size_t {
  kV2Title,
  kV2Artist,
  kV2Album,
  kV2Year,
  kV2Track,
  kV2Composer,
  kV2OrigArtist,
  kV2Copyright,
  kV2EncodedBy,
  kV2Url,
  kV2Lyrics,
  kV2UserText,
  kV2ArtistUrl,
  kV2Genre,
  kV2Preference,
  kV2Mood,
  kV2Tempo,
  kV2Situation,
  kV2BoxCount
};
// The field of the tag (see tag_fields.h) that a box stands for.
std::string_view FieldOf(Id3v2Box box);

enum Id3v1Box : std::size_t { kV1Title, kV1Artist, kV1Album, kV1Year, kV1Comment, kV1BoxCount };

// What the tag editor's form holds.
struct TagForm {
  bool id3v1_present = false;
  std::array<std::string, kV1BoxCount> v1;
  std::string v1_track;
  int v1_genre = 0;  // entry of the list: 0 is the empty one, n stands for genre n - 1

  bool id3v2_present = false;
  std::array<std::string, kV2BoxCount> v2;
  std::vector<TagComment> comments;  // the time positions among them
  std::vector<TagPicture> images;
};

// What Copy has put aside. It fills bit by bit: a tag that wasn't in the form at the last copy counts as absent, and
// keeps its values.
struct TagClipboard {
  explicit TagClipboard(const FileSystem& files) : ClipboardTag(files) {}

  TagObject ClipboardTag;
  bool ClipboardFull = false;
  bool ClipV1Present = false;
  bool ClipV2Present = false;
};

// The names in the lists of genres, the empty entry first.
std::vector<std::string> GenreEntries();

// A tag into the form. A genre that no entry stands for leaves the entry as it was.
void ShowTag(const TagObject& tag, TagForm& form);
void ShowClipboard(const TagClipboard& clipboard, TagForm& form);

// The form into a tag: every box of a tag that is present, the empty ones too; comments and pictures as they are.
void CollectTag(const TagForm& form, TagObject& tag);
void CollectToClipboard(const TagForm& form, TagClipboard& clipboard);

// How an update gives a file the whole form, worked out. Throws Failure: another file than an .mp3, one whose tags
// can't be read or that can't be written.
TagWrite PlanUpdate(const FileSystem& files, const std::string& path, const TagForm& form);

}  // namespace qublet
