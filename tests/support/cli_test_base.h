#pragma once

#include <sstream>
#include <string>

#include "cli/command_table.h"
#include "support/list_test_base.h"

namespace qublet {

// Runs the commands of `qublet` in this process, each time with a program of its own, over two temporary drives. The
// program folder is "c:\program".
class CliTestBase : public ListTestBase {
 protected:
  int Run(const Arguments& arguments) {
    out_.str("");
    err_.str("");
    PrintedDialogs dialogs(err_);
    Engine engine(fakes_.Over(*files_, feedback_, dialogs), {"QUBLET2021", "c:\\program", ""}, ",");
    return RunCommand(arguments, engine, dialogs, out_, err_);
  }
  // With the name of the command ahead of its arguments.
  int Run(const std::string& command, Arguments arguments) {
    arguments.insert(arguments.begin(), command);
    return Run(arguments);
  }
  std::string Out() const { return out_.str(); }
  std::string Err() const { return err_.str(); }

  std::ostringstream out_;
  std::ostringstream err_;
};

}  // namespace qublet
