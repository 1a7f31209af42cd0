#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qublet {

// What can stand behind a command, read from how its usage is written.
struct Usage {
  struct Option {
    std::string name;                  // "--by"
    std::string value;                 // "FOLDER", what it takes; "" for nothing or a choice
    std::vector<std::string> choices;  // "name", "folder", "path"
  };

  std::vector<std::string> words;  // that can stand right behind the command: "status", "stop"
  std::vector<Option> options;
};

// The usages of all rows of that command in the table of commands, each word and option once, in their order.
Usage UsageOf(std::string_view command);

// Adds what the usage of one row says, its command's name in front: "[...]" can be left out, "|" parts alternatives,
// small letters are to be written as they are, capitals stand for something.
void AddUsage(std::string_view usage, Usage& all);

}  // namespace qublet
