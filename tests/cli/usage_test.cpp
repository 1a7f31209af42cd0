#include "cli/usage.h"

#include <gtest/gtest.h>

#include "support/cli_test_base.h"

namespace qublet {
namespace {

// "words; --option=VALUE --option=a|b"
std::string Read(std::string_view text) {
  Usage usage;
  AddUsage(text, usage);
  std::string read;
  for (const std::string& word : usage.words) read += word + " ";
  read += ";";
  for (const Usage::Option& option : usage.options) {
    read += " " + option.name;
    if (!option.value.empty()) read += "=" + option.value;
    for (const std::string& choice : option.choices) read += (&choice == &option.choices[0] ? "=" : "|") + choice;
  }
  return read;
}

TEST(AddUsage, FindsTheWordsThatStandRightBehindTheCommand) {
  EXPECT_EQ(Read("player [status | stop | jump SECONDS]"), "status stop jump ;");
  EXPECT_EQ(Read("disc check [--capacity ROW] FOLDER"), "check ; --capacity=ROW");
  EXPECT_EQ(Read("settings [list [--json] | get SECTION KEY | set SECTION KEY VALUE]"), "list get set ; --json");
  EXPECT_EQ(Read("scheme list | save NAME|current FILE.dps [--replace] | apply NAME|FILE.dps"),
            "list save apply ; --replace");
  EXPECT_EQ(Read("completion bash|zsh|fish"), "bash zsh fish ;");
  EXPECT_EQ(Read("update"), ";");
}

TEST(AddUsage, FindsWhatEachOptionTakes) {
  EXPECT_EQ(Read("purge --duplicates [--by name|folder|path] [--all]\n        [--save OUT [--relative]] PATH..."),
            "; --duplicates --by=name|folder|path --all --save=OUT --relative");
  EXPECT_EQ(Read("autocreate [--in base|root|both | --to FOLDER] [--format F] PATH..."),
            "; --in=base|root|both --to=FOLDER --format=F");
  EXPECT_EQ(Read("tag [--json | --title] [--set FIELD=TEXT]... [--remove v1|v2]... FILE..."),
            "; --json --title --set=FIELD=TEXT --remove=v1|v2");
  EXPECT_EQ(Read("tag --attributes NAME=SET|CLR[,...] FILE..."), "; --attributes=NAME=SET|CLR");
  EXPECT_EQ(Read("rename --history | --undo [RUN]"), "; --history --undo");
}

TEST(UsageOf, JoinsTheRowsOfACommandAndNamesEachOptionOnce) {
  const Usage purge = UsageOf("purge");
  std::vector<std::string> names;
  for (const Usage::Option& option : purge.options) names.push_back(option.name);
  EXPECT_EQ(names, (std::vector<std::string>{"--duplicates", "--by", "--fold-case", "--all", "--save", "--relative",
                                             "--replace", "--missing"}));
  EXPECT_EQ(UsageOf("bookmarks").words, (std::vector<std::string>{"list", "show", "add", "remove", "titles"}));
}

class CompletionCommandTest : public CliTestBase {};

TEST_F(CompletionCommandTest, PrintsAScriptForEachShellAndKnowsNoOther) {
  for (const char* shell : {"bash", "zsh", "fish"}) {
    EXPECT_EQ(Run({"completion", shell}), kDone) << shell;
    for (const CliCommand& command : CliCommands())
      EXPECT_NE(Out().find(command.name), std::string::npos) << shell << " " << command.name;
  }
  EXPECT_EQ(Run({"completion"}), kWrongUse);
  EXPECT_EQ(Run({"completion", "tcsh"}), kWrongUse);
  EXPECT_EQ(Err(), "qublet: completion: bash, zsh or fish is wanted\n");
}

}  // namespace
}  // namespace qublet
