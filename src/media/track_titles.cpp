#include "media/track_titles.h"

#include "media/tag_file.h"
#include "media/vorbis_comments.h"
#include "playlist/paths/formats.h"

namespace qublet {
namespace {

std::string Compose(const std::string& raw_artist, const std::string& raw_title) {
  const std::string artist = CleanTagText(raw_artist);
  const std::string title = CleanTagText(raw_title);
  if (title.empty()) return artist;
  return (artist.empty() ? "Unknown Artist" : artist) + " - " + title;
}

}  // namespace

std::string GetMp3TrackTitle(const FileSystem& files, const std::string& path) {
  if (!files.Exists(path)) return "";  // nor is a pattern a file to read
  TagObject tag(files);
  Outcome ok;
  GetID3Tag(files, path, tag, ok);
  if (!ok) return "";

  std::string title;
  std::string artist;
  if (tag.HasID3v2()) {
    title = tag.Frame("TIT2");
    artist = tag.Frame("TPE1");
  }
  if ((title.empty() || artist.empty()) && tag.HasID3v1()) {
    title = tag.V1Title();
    artist = tag.V1Artist();
  }
  return Compose(artist, title);
}

std::string GetOggTrackTitle(const FileSystem& files, const std::string& path) {
  VorbisComments comments;
  if (!files.Exists(path) || !ReadVorbisComments(files, path, comments)) return "";
  return Compose(comments.Artist, comments.Title);
}

}  // namespace qublet
