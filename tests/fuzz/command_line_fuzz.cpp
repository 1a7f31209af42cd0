#include "fuzz/fuzz_input.h"
#include "platform/windows/word_cutter.h"

using namespace qublet;

namespace {

using Words = std::vector<std::wstring>;

std::wstring Wide(std::string_view text) {
  return {text.begin(), text.end()};
}

Words CutOff(std::wstring_view line, bool folders) {
  Words words;
  WordCutter cutter(line, [folders](const std::wstring&) { return folders; });
  for (std::wstring word; cutter.Next(word);) words.push_back(word);
  return words;
}

// As a program hands a word to another: quotes around it, a backslash before each in it and before those ahead of
// one.
std::wstring Quoted(const std::wstring& word) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t unit : word) {
    if (unit == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = unit == L'\\' ? backslashes + 1 : 0;
    quoted += unit;
  }
  return quoted.append(backslashes, L'\\') + L"\"";
}

}  // namespace

// Any line is cut into words that are no longer than it; words that were quoted come back, but for
// what people mean by "C:\Music\".
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring line = Wide(TextOf(data, size));
  for (const bool folders : {false, true}) {
    std::size_t length = 0;
    for (const std::wstring& word : CutOff(BehindProgram(line), folders)) length += word.size();
    Require(length <= line.size());
  }
  Words words;
  std::wstring quoted = L"program";
  Pieces pieces(data, size);
  while (!pieces.IsEmpty() && words.size() < 100) {
    words.push_back(Wide(pieces.Text()));
    if (words.back().substr(0, 2).ends_with(L':')) words.back().insert(0, L"- ");
    quoted += L' ' + Quoted(words.back());
  }
  Require(CutOff(BehindProgram(quoted), false) == words);
  return 0;
}
