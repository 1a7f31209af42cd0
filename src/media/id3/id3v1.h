#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "media/id3/bytes.h"

namespace qublet {

// The 128 bytes at the end of a file. A field keeps its bytes, whatever they are, until its text changes.
//
// Nothing in the tag says what its letters are. A field is read as UTF-8 where it is well-formed UTF-8 (a last
// character that the field's end cuts off is passed over) and else in the system's code page; it is written in the
// code page when every character fits, else in UTF-8. Texts that are too long lose whole characters at their end.
class Id3v1Tag {
 public:
  static constexpr std::size_t kSize = 128;
  // A known program wrote years of less than four digits without filling them up, so the tag may be shorter.
  static constexpr std::size_t kMostCut = 4;

  // An empty tag without a genre (255).
  Id3v1Tag();
  // Nothing unless these are the bytes of a tag; a short one is taken where all its fields are filled up with zeros.
  static std::optional<Id3v1Tag> Parse(BytesView bytes);

  // Up to 30 characters; the comment up to 28 when there is a track.
  std::string Title() const { return Text(kTitle); }
  std::string Artist() const { return Text(kArtist); }
  std::string Album() const { return Text(kAlbum); }
  std::string Comment() const { return Text(CommentField()); }
  // Four characters as they stand.
  std::string Year() const { return Text(kYear); }
  // 0 for none.
  std::uint8_t Track() const { return bytes_[kTrackMark] == 0 ? bytes_[kTrackMark + 1] : std::uint8_t{0}; }
  std::uint8_t Genre() const { return bytes_[kSize - 1]; }

  void SetTitle(const std::string& text) { SetText(kTitle, text); }
  void SetArtist(const std::string& text) { SetText(kArtist, text); }
  void SetAlbum(const std::string& text) { SetText(kAlbum, text); }
  void SetComment(const std::string& text);
  void SetYear(const std::string& text) { SetText(kYear, text); }
  void SetTrack(std::uint8_t track);
  void SetGenre(std::uint8_t genre) { bytes_[kSize - 1] = genre; }

  BytesView Raw() const { return bytes_; }

 private:
  struct Field {
    std::size_t start;
    std::size_t width;
  };
  static constexpr Field kTitle{3, 30};
  static constexpr Field kArtist{33, 30};
  static constexpr Field kAlbum{63, 30};
  static constexpr Field kYear{93, 4};
  static constexpr Field kComment{97, 30};
  static constexpr std::size_t kTrackMark = 125;  // zero when the track follows

  bool IsFilledUp() const;
  Field CommentField() const { return Track() != 0 ? Field{kComment.start, 28} : kComment; }
  std::string Text(Field field) const;
  void SetText(Field field, const std::string& text);

  std::array<std::uint8_t, kSize> bytes_{};
  std::optional<std::string> whole_comment_;  // as it was set, for when the track leaves it more room later
};

}  // namespace qublet
