#pragma once

#include <string_view>

namespace qublet {

// The drive form of paths: "c:\music\a.mp3".

inline bool IsSeparator(char character) {
  return character == '\\' || character == '/';
}

inline bool IsDriveLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

inline bool HasDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && IsDriveLetter(path[0]);
}

}  // namespace qublet
