#include <cstdio>
#include <iostream>
#include <new>

#include "cli/command_table.h"
#include "engine/system.h"
#include "platform/end_requests.h"
#include "platform/program.h"

namespace {

int Run(int argc, char** argv) {
  const qublet::Utf8Console console;
  const qublet::TidyEnd tidy_end;
  const qublet::System system;
  qublet::PrintedDialogs dialogs(std::cerr);
  qublet::Feedback feedback;
  qublet::Engine engine(system.With(dialogs, feedback), system.FindPlaces(), ",");
  int code = qublet::kCouldNot;
  // What a command doesn't mind itself, want of memory above all.
  const qublet::Outcome ran = qublet::Attempt([&] {
    code = qublet::RunCommand(qublet::CommandLineArguments(argc, argv), engine, dialogs, std::cout, std::cerr);
  });
  if (!ran) qublet::Complain(std::cerr, ran.Reason(), qublet::kCouldNot);
  // A reader that went away or a full disk isn't "done".
  if (!std::cout.flush() && code == qublet::kDone) {
    code = qublet::Complain(std::cerr, "the output can't be written", qublet::kCouldNot);
  }
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  qublet::LoadNothingForeign();
  std::ios::sync_with_stdio(false);
  try {
    return Run(argc, argv);
  } catch (const std::bad_alloc&) {
    // Not even for what is said about it; a stream might want some.
    std::fputs("qublet: not enough memory\n", stderr);
    return qublet::kCouldNot;
  }
}
