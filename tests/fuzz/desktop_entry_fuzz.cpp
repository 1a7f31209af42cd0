#include "platform/linux/desktop_entry.h"

#include "fuzz/fuzz_input.h"
#include "support/temporary_desktop.h"

using namespace qublet;

namespace {

bool HoldsZero(const std::vector<std::string>& words) {
  return std::ranges::any_of(words, [](const std::string& word) { return word.find('\0') != word.npos; });
}

// The file that is opened is always among the words, and none holds a zero that the text doesn't.
void CheckCommand(const DesktopEntry& entry, bool zero_in_text) {
  const std::vector<std::string> line = entry.CommandLine("/the/file");
  Require(std::ranges::any_of(line, [](const std::string& word) { return word.find("/the/file") != word.npos; }));
  Require(zero_in_text || !HoldsZero(line));
}

// As an entry has to write a word that holds anything.
std::string Quoted(const std::string& word) {
  std::string quoted = "\"";
  for (const char c : word) {
    if (std::string_view("\"`$\\").find(c) != std::string_view::npos) quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

void CheckQuotedWords(Pieces pieces) {
  std::vector<std::string> words;
  std::string line;
  while (!pieces.IsEmpty() && words.size() < 100) {
    words.push_back(pieces.Text());
    std::erase(words.back(), '\0');
    line += ' ' + Quoted(words.back());
  }
  Require(CommandWords(line) == words);
}

// A program that is there, in a folder of programs, and the entry as a file.
std::optional<DesktopEntry> EntryOf(std::string_view text) {
  static const TemporaryDesktop desktop;
  static const std::string program = desktop.AddProgram("one");
  const std::filesystem::path file = desktop.SystemData() / "one.desktop";
  TemporaryDrives::WriteAt(file, std::string(text));
  auto entry = ReadDesktopEntry("one", file.string());
  Require(!entry || (!entry->command.empty() && FindProgram(entry->command.front()).starts_with('/')));
  return entry;
}

}  // namespace

// The input is a desktop entry, a list of associations, or words.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = TextOf(data, size);
  const bool zero = text.find('\0') != text.npos;
  for (const std::string& item : ListOf(text, "Default Applications", "audio/x-mpegurl"))
    Require(!item.empty() && item.find(';') == item.npos);
  if (const auto words = CommandWords(ValueOf(text, "Desktop Entry", "Exec"))) {
    DesktopEntry entry;
    entry.name = ValueOf(text, "Desktop Entry", "Name");
    entry.command = *words;
    CheckCommand(entry, zero);
  }
  if (const auto entry = EntryOf(text)) {
    CheckCommand(*entry, zero);
    entry->RunsByItself();
  }
  CheckQuotedWords(Pieces(data, size));
  return 0;
}
