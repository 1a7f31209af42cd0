#pragma once

namespace qublet {

enum class ListType { kM3u, kM3u8, kBoth };

// What a line of a list becomes, and what is saved for it. The list is "c:\list\list.m3u" or ".m3u8".
struct ForeignLine {
  const char* habit;
  ListType type;
  const char* line;  // "@": the temporary folder in this system's own form, c: and d: are "@/c" and "@/d"
  const char* disk;  // the files that are there, below that folder, with ";" between
  const char* path;  // of the row; "$": the temporary folder in drive form
  bool there;
  const char* m3u;  // its bytes in a new list of each type, in the same folder
  const char* m3u8;
  const char* page = "1252";  // of the user's language
};

}  // namespace qublet
