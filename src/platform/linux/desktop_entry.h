#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qublet {

// Text of groups and keys, as desktop entries and the lists of associations are written:
//
//   [Group]
//   Key=value;value;
//
// The value as it stands there, "" when there is none. The first of several counts.
std::string ValueOf(std::string_view text, std::string_view group, std::string_view key);
// The same cut at each ";", without the empty pieces.
std::vector<std::string> ListOf(std::string_view text, std::string_view group, std::string_view key);

// Content of such a file; "" when it can't be read or has more than 4 MiB.
std::string ReadGroups(const std::string& native);

// A program as it describes itself for menus and associations.
struct DesktopEntry {
  std::string id;      // file name below the folder, "-" for "/", without ".desktop"
  std::string native;  // the file
  std::string name;
  std::string icon;
  std::vector<std::string> command;  // words of the Exec line, with their field codes
  std::string program;               // that the first word means, absolute
  std::string folder;                // where it wants to begin, "" for anywhere
  std::vector<std::string> categories;
  std::vector<std::string> types;
  bool in_terminal = false;

  // Whether the first word is the program itself: one that has to be told what to run, by a word that is neither an
  // option nor stands for the file, is an interpreter.
  bool RunsByItself() const;
  // The command line that opens a file. The file comes last when the Exec line has no place for it.
  std::vector<std::string> CommandLine(const std::string& native_file) const;
};

// Nothing when the file can't be read, isn't an application, is hidden, or names a program that isn't there.
std::optional<DesktopEntry> ReadDesktopEntry(const std::string& id, const std::string& native);

// The words of a command line: at blanks, with quotes and backslashes as a shell takes them. Nothing when a quote
// doesn't end.
std::optional<std::vector<std::string>> CommandWords(std::string_view line);

// A program by its name, looked for in $PATH, or by its absolute path; "" when it can't be run.
std::string FindProgram(const std::string& name);

}  // namespace qublet
