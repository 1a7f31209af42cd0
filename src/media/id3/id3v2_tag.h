#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "media/id3/frame_content.h"
#include "media/id3/raw_tag.h"

namespace qublet {

struct TagComment {
  std::string description;
  std::string text;
  std::string language = "";  // three letters; "" leaves it to whoever writes. Comments are told apart without it.
  bool operator==(const TagComment& other) const { return description == other.description && text == other.text; }
};

struct TagPicture {
  std::string description;
  std::string mime_type;
  SharedBytes data;
  // What it shows (0 to 20; 3 is the front cover). Nothing leaves it to whoever writes. Pictures are told apart
  // without it.
  std::optional<std::uint8_t> type = std::nullopt;
  bool operator==(const TagPicture& other) const {
    return description == other.description && mime_type == other.mime_type && data == other.data;
  }
};

// The ID3v2 tag of a file as something to edit. Frames that aren't shown, and shown ones whose text stays the same,
// keep their bytes. ID3v2.4 stays 2.4; everything else is 2.3.
class Id3v2Tag {
 public:
  // A new tag, ID3v2.3.
  Id3v2Tag() = default;
  // One that was read from a file.
  explicit Id3v2Tag(RawTag raw)
      : raw_(Upgraded(std::move(raw))), is_new_(false), shows_compressed_(ShowsCompressed(raw_)) {}

  // The text of a frame by its four-character id, as far as kMostText bytes of it go; "" when there is none. Several
  // text frames of one id are shown as several values of one are. "TYER" is the year in every version (the text of
  // TDRC in 2.4). Of TXXX it is the frame with the empty description; of WXXX and USLT the one with the empty
  // description, else the first.
  std::string Frame(std::string_view id) const;
  // A text equal to the present one, as it is shown, touches nothing; another one replaces all frames that it is
  // shown from, and a year the day and time that belonged to the old one. An empty text leaves an empty frame, or
  // none where a frame can't be empty; a missing frame isn't made for it, except for a text frame of a new tag.
  // Throws Failure for an id that holds no text.
  void SetFrame(std::string_view id, const std::string& text);

  // A value that is kept in a comment of a reserved description (see kPropertyDescriptions), "" when there is none.
  // Such comments are no part of Comments(). Setting "" removes it.
  std::string Property(std::string_view description) const;
  void SetProperty(std::string_view description, const std::string& text);

  // In file order.
  std::vector<TagComment> Comments() const;
  std::vector<TagPicture> Pictures() const;
  // What is equal to a present comment or picture keeps that frame's bytes; a comment that only changes its text
  // keeps language and encoding. New comments are in the language "eng"; of new pictures the first is the front
  // cover.
  void SetComments(const std::vector<TagComment>& comments);
  void SetPictures(const std::vector<TagPicture>& pictures);

  // A tag has at least one frame: an empty title if there is nothing else.
  void EnsureNotEmpty();

  const RawTag& Raw() const { return raw_; }

 private:
  static constexpr char kNewLanguage[] = "eng";

  using Wanted = std::function<bool(const FrameText&)>;
  using Places = std::vector<std::size_t>;  // numbers of frames, ascending

  std::optional<BytesView> ContentOf(const RawFrame& frame, Bytes& room) const;
  std::optional<FrameText> TextIn(const RawFrame& frame, FrameKind kind) const;
  // Only frames whose text can be shown.
  Places FindAll(std::string_view id, const Wanted& wanted) const;
  std::optional<std::size_t> FindHidden(std::string_view id) const;
  Places FindFrame(std::string_view id) const;
  Places FindProperty(std::string_view description) const;
  std::string TextOf(const Places& places) const;
  void SetText(std::size_t place, const std::string& text);
  void SetTexts(const Places& places, const std::string& text);
  void AddText(std::string_view id, const FrameText& text);
  std::size_t PlaceForNew() const;
  void EraseIf(const std::function<bool(std::size_t, const RawFrame&)>& goes);
  void EraseAll(std::string_view id, const Wanted& wanted);
  void SetYear(const std::string& text);
  RawFrame NewComment(const TagComment& comment) const;
  RawFrame NewPicture(const TagPicture& picture, bool first) const;
  Places CommentPlaces() const;
  Places PicturePlaces() const;
  void Put(const Places& places, std::vector<RawFrame> frames);

  RawTag raw_;
  bool is_new_ = true;
  bool shows_compressed_ = true;
};

inline constexpr std::string_view kPropertyDescriptions[] = {"MusicMatch_Preference", "MusicMatch_Mood",
                                                             "MusicMatch_Tempo", "MusicMatch_Situation"};

}  // namespace qublet
