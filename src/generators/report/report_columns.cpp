#include "generators/report/report_columns.h"

namespace qublet {
namespace {

using enum ColumnGroup;

constexpr std::array<ReportColumn, kReportColumns> kColumns = {{
    {"FileName", 40, kNothing},  {"Folder", 100, kNothing},
    {"Time", 9, kMedia},         {"Size", 10, kMedia},
    {"ID", 4, kMedia},           {"Layer", 9, kMedia},
    {"BitRate", 10, kMedia},     {"SampleRate", 7, kMedia},
    {"Mode", 13, kMedia},        {"CRC Protection", 4, kMedia},
    {"Emphasis", 6, kMedia},     {"Copyrighted", 4, kMedia},
    {"Id3v1 Title", 30, kId3v1}, {"Id3v1 Artist", 30, kId3v1},
    {"Id3v1 Album", 30, kId3v1}, {"Id3v1 Year", 12, kId3v1},
    {"Id3v2 Title", 30, kId3v2}, {"Id3v2 Artist", 30, kId3v2},
    {"Id3v2 Album", 30, kId3v2}, {"Id3v2 Year", 12, kId3v2},
    {"Link", 0, kLink},
}};

}  // namespace

const ReportColumn* FindReportColumn(int number) {
  if (number < 1 || number > static_cast<int>(kColumns.size())) return nullptr;
  return &kColumns[static_cast<std::size_t>(number - 1)];
}

}  // namespace qublet
