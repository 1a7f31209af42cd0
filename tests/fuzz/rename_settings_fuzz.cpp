#include "fuzz/fuzz_input.h"
#include "tools/rename/apply_rules.h"
#include "tools/rename/rename_settings.h"

// Kept rules may be anything: they are read, written again in the same length, and work on a name without an end.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const qublet::RenameConfig config = qublet::RenameConfigOf(bytes);
  const std::string record = qublet::RenameRecord(config);
  qublet::Require(record.size() == qublet::kRenameRecordSize);
  qublet::Require(qublet::RenameConfigOf(record) == config);
  qublet::BuildRenameSummary(config);
  qublet::ResumeNext(
      [&] { qublet::RenameRules(config).NewPath("c:\\A_1.mp3", 1, 10, [](const std::string&) { return "a"; }); });
  return 0;
}
