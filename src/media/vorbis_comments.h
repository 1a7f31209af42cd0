#pragma once

#include <cstdint>
#include <string>

#include "platform/file_system.h"

namespace qublet {

struct VorbisComments {
  std::string Title;
  std::string Artist;
  std::string Album;
  std::string Genre;
  std::string Date;
  std::string Comment;
  std::int16_t Track = 0;  // the leading number of its text
  std::string EncodedUsing;
  std::string ErrorText;  // "" on success
};

// Reads comment fields of an OGG file by their look, not by their length fields: a block of 2048 bytes is searched
// for a comment header with a vendor string of 29 or 32 bytes, and the values are cut out between delimiters. Files
// made by other encoders, with a comment header beyond the first block or longer than a block, or shorter than 4096
// bytes give an error; so do values that no three zero bytes follow. Every byte is a Latin-1 character. Field names
// count in capitals only, wherever they stand.
//
// True when a field was found. After a failure the fields found before it stay. Never throws.
bool ReadVorbisComments(const FileSystem& files, const std::string& path, VorbisComments& comments);
bool ReadVorbisComments(InputFile& file, VorbisComments& comments);

}  // namespace qublet
