#include "fuzz/fuzz_input.h"
#include "platform/linux/desktop_entry.h"

// The input is a desktop entry or a list of associations. No word of a command line holds a zero that the text
// doesn't, and the file that is opened is always among the words.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = qublet::TextOf(data, size);
  qublet::DesktopEntry entry;
  entry.name = qublet::ValueOf(text, "Desktop Entry", "Name");
  for (const std::string& item : qublet::ListOf(text, "Default Applications", "audio/x-mpegurl"))
    qublet::Require(!item.empty() && item.find(';') == item.npos);
  const auto words = qublet::CommandWords(qublet::ValueOf(text, "Desktop Entry", "Exec"));
  if (!words) return 0;
  entry.command = *words;
  bool found = false;
  for (const std::string& word : entry.CommandLine("/the/file")) found = found || word.find("/the/file") != word.npos;
  qublet::Require(found);
  return 0;
}
