#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace qublet {

// How a command line is cut, without a call to the system. See CommandWords.

// What follows the program's name, without the blanks ahead.
std::wstring_view BehindProgram(std::wstring_view line);

// Cuts words off a line.
class WordCutter {
 public:
  using IsFolder = std::function<bool(const std::wstring& path)>;

  // `line` outlives this.
  WordCutter(std::wstring_view line, IsFolder is_folder) : rest_(line), is_folder_(std::move(is_folder)) {}

  // False when there is no further one.
  bool Next(std::wstring& word);

 private:
  void TakeBackslashes(std::wstring& word, bool quoted);
  bool EndsAFolder(const std::wstring& word) const;

  std::wstring_view rest_;
  IsFolder is_folder_;
};

}  // namespace qublet
