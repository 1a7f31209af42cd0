// Takes a list that a crash left and changes it, for the tests of interrupted writing: restores
// c:\own\recovery-1.m3u, adds a file and has it written; "stored" removes it then. Gives 0 when the file is as it
// should be after that.
//
//   recovery_driver FILE kept|stored

#include <string>

#include "engine/recovery.h"

int main(int count, char** arguments) {
  using namespace qublet;
  if (count != 3) return 2;
  const std::unique_ptr<FileSystem> files = OpenFileSystem();
  Document document;
  Feedback feedback;
  MainView view;
  Items items(document, *files, feedback, view, ",");
  Recovery recovery(document, *files, "c:\\own");
  const std::string list = "c:\\own\\recovery-1.m3u";
  if (!recovery.Restore(list, items)) return 1;
  const std::int64_t before = files->FileLength(list);
  items.AddStuff(arguments[1], false);
  recovery.Settle();
  if (files->FileLength(list) == before) return 1;
  if (std::string(arguments[2]) == "kept") return 0;
  document.MarkStored();
  recovery.Settle();
  return files->Attributes(list) ? 1 : 0;
}
