#include <iostream>

#include "cli/command_table.h"
#include "platform/program.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  const qublet::Utf8Console console;
  const std::unique_ptr<qublet::FileSystem> files = qublet::OpenFileSystem();
  const std::unique_ptr<qublet::SettingsStore> store = qublet::OpenSettingsStore();
  int code = qublet::RunCommand(qublet::CommandLineArguments(argc, argv), *files, *store, std::cout, std::cerr);
  // A reader that went away or a full disk isn't "done".
  if (!std::cout.flush() && code == qublet::kDone) code = qublet::kCouldNot;
  return code;
}
