#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "media/tag_object.h"
#include "media/vorbis_comments.h"
#include "playlist/paths/collections.h"

namespace qublet {

// What the window's information pages show of a file, where they are asked for.
struct FilePages {
  std::vector<std::string> file_info;
  std::string stream_name;  // "MPEGInfo" or "OGGInfo", "" for neither
  std::vector<std::string> stream;
};
FilePages PagesOf(const CommandContext& context, const std::string& path, const StreamFacts& stream,
                  const VorbisComments& comments);

// What is known of a file's tags, as lines for people or as one line of JSON, with the pages.

void PrintTags(const std::string& path, const TagObject& tag, const FilePages& pages, bool json, std::ostream& out);
// The places in time of a file: a line for each, with its number, record and time.
void PrintTimes(const std::string& path, const Collection& records, bool json, std::ostream& out);
void PrintComments(const std::string& path, const VorbisComments& comments, const FilePages& pages, bool json,
                   std::ostream& out);

}  // namespace qublet
