#include "fuzz/fuzz_input.h"
#include "generators/report/report_settings.h"

// Kept settings of a report may be anything: they are read, and written again in the same length.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const qublet::ReportSettings settings = qublet::ReportSettingsOf(qublet::TextOf(data, size));
  const std::string record = qublet::ReportRecord(settings);
  qublet::Require(record.size() == qublet::kReportRecordSize);
  qublet::Require(qublet::ReportSettingsOf(record) == settings);
  return 0;
}
