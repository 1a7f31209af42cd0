#include "media/tag_file.h"

#include "playlist/paths/file_details.h"

namespace qublet {
namespace {

bool IsFile(const FileSystem& files, std::string path) {
  FileDetails details;
  GetFileDetails(files, path, details);
  return details.Exists && details.IsFile;
}

}  // namespace

void GetID3Tag(const FileSystem& files, const std::string& mp3_file, TagObject& tag, bool& ok) {
  ok = false;
  if (!IsFile(files, mp3_file)) return;
  ok = Guarded([&] { tag.ReadTags(mp3_file, true); });
}

void WriteTags(const FileSystem& files, const std::string& path, TagObject& tag, bool id3v1_present,
               bool id3v2_present) {
  if (!IsFile(files, path)) throw Failure("no such file", path);
  if (files.IsReadOnly(path)) throw Failure("read-only", path);
  if (id3v1_present) {
    tag.WriteID3v1(path);
  } else {
    tag.RemoveID3v1(path);
  }
  if (id3v2_present) {
    tag.WriteID3v2(path);
  } else {
    tag.RemoveID3v2(path);
  }
}

void WriteTagToFile(const FileSystem& files, const std::string& path, TagObject& tag, bool id3v1_present,
                    bool id3v2_present, bool& ok) {
  ok = Guarded([&] { WriteTags(files, path, tag, id3v1_present, id3v2_present); });
}

}  // namespace qublet
