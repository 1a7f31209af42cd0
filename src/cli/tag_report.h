#pragma once

#include <iosfwd>
#include <string>

#include "media/tag_object.h"
#include "media/vorbis_comments.h"

namespace qublet {

// What is known of a file's tags, as lines for people or as one line of JSON.

void PrintTags(const std::string& path, const TagObject& tag, bool json, std::ostream& out);
void PrintComments(const std::string& path, const VorbisComments& comments, bool json, std::ostream& out);

}  // namespace qublet
