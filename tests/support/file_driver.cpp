// Does one operation on files, for the tests of interrupted work. Paths are in drive form; gives 1 on a failure.
//
//   file_driver replace FILE CONTENT
//   file_driver batch FILE FILE        both replaced by "new" in one batch
//   file_driver truncate FILE CONTENT  as it should not be done: in place
//   file_driver append FILE SOURCE     a new version: what FILE holds, then what SOURCE holds
//   file_driver copy SOURCE TARGET
//   file_driver rename FROM TO

#include <map>

#include "platform/file_system.h"

namespace {

using qublet::FileSystem;
using Operation = void (*)(const FileSystem& files, const std::string& one, const std::string& other);

void Replace(const FileSystem& files, const std::string& file, const std::string& content) {
  const auto next = files.BeginReplacement(file);
  // In two pieces, one of them larger than any buffer.
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(content.data());
  next->Write({bytes, content.size() / 8});
  next->Write({bytes + content.size() / 8, content.size() - content.size() / 8});
  next->Commit();
}

void ReplaceBoth(const FileSystem& files, const std::string& one, const std::string& other) {
  const auto batch = files.BeginBatch();
  for (const std::string& file : {one, other}) Replace(files, file, "new");
}

void Truncate(const FileSystem& files, const std::string& file, const std::string& content) {
  const auto open = files.OpenInPlace(file);
  open->Truncate(0);
  open->WriteAt(0, {reinterpret_cast<const std::uint8_t*>(content.data()), content.size()});
  open->Flush();
}

void Append(const FileSystem& files, const std::string& file, const std::string& addition) {
  const auto next = files.BeginReplacement(file);
  for (const std::string& part : {file, addition}) {
    const auto source = files.OpenForReading(part);
    next->CopyFrom(*source, 0, source->Size());
  }
  next->Commit();
}

void Copy(const FileSystem& files, const std::string& source, const std::string& target) {
  files.CopyFile(source, target);
}

void Rename(const FileSystem& files, const std::string& from, const std::string& to) {
  files.Rename(from, to);
}

}  // namespace

int main(int count, char** arguments) {
  const std::map<std::string, Operation> operations = {{"replace", Replace},   {"batch", ReplaceBoth},
                                                       {"truncate", Truncate}, {"append", Append},
                                                       {"copy", Copy},         {"rename", Rename}};
  if (count != 4 || !operations.contains(arguments[1])) return 2;
  const bool done =
      qublet::Guarded([&] { operations.at(arguments[1])(*qublet::OpenFileSystem(), arguments[2], arguments[3]); });
  return done ? 0 : 1;
}
