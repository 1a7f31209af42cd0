#include "media/tag_file.h"

#include "playlist/paths/file_details.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

void RefuseAllButFiles(const FileSystem& files, std::string path) {
  FileDetails details;
  GetFileDetails(files, path, details);
  if (!details.Exists) throw Failure("no such file or folder", path);
  if (!details.IsFile) throw Failure("is a folder", path);
}

}  // namespace

void GetID3Tag(const FileSystem& files, const std::string& mp3_file, TagObject& tag, Outcome& ok) {
  ok = Attempt([&] {
    RefuseAllButFiles(files, mp3_file);
    tag.ReadTags(mp3_file, true);
  });
}

void RefuseAllButMp3(const std::string& path) {
  if (LowerCase(GetExtension(GetFileName(path))) != ".mp3") throw Failure("only .mp3 files have tags to change");
}

void RefuseUnwritable(const FileSystem& files, const std::string& path) {
  RefuseAllButFiles(files, path);
  if (files.IsReadOnly(path)) throw Failure("read-only", path);
}

void WriteTagToFile(const FileSystem& files, const std::string& path, TagObject& tag, bool id3v1_present,
                    bool id3v2_present, Outcome& ok) {
  ok = Attempt([&] {
    RefuseUnwritable(files, path);
    tag.Write(path, WrittenIf(id3v1_present), WrittenIf(id3v2_present));
  });
}

}  // namespace qublet
