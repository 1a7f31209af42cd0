#pragma once

#include <array>
#include <string_view>

namespace qublet {

// The twelve columns of the list. Cells are addressed by number: 0 is the main text, 1 to 11 are the sub-items.
enum Column : int {
  kFileName = 0,
  kTime,
  kSize,
  kPath,
  kId,
  kLayer,
  kBitrate,
  kSamplerate,
  kMode,
  kHiddenLen,
  kHiddenSize,
  kOriginalOrder,
};

inline constexpr int kColumnCount = 12;
inline constexpr int kSubItemCount = kColumnCount - 1;

struct ColumnDesign {
  std::string_view header;
  int width = 0;  // pixels at 96 dpi; 0 hides the column
  bool right_aligned = false;
};

extern const std::array<ColumnDesign, kColumnCount> kColumns;

}  // namespace qublet
