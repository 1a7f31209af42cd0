#pragma once

#include <string>
#include <string_view>

namespace qublet {

// What the tag editor looks up on the web.

// The address that a text in a box stands for: "http://" comes in front unless it is somewhere in the text.
std::string AddressOf(const std::string& text);

// The address of a search for a text. A blank is "%20", a "+" stays, all else is percent-encoded UTF-8.
std::string SearchAddress(std::string_view text);

// What is known of a piece of music.
struct MusicNames {
  std::string title;
  std::string artist;
  std::string album;
};

// The text to search for: the names, else the file's name without its extension. "" when there is nothing to search.
std::string QueryFor(MusicNames names, const std::string& file_label);

}  // namespace qublet
