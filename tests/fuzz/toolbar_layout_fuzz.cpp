#include "app/toolbar_layout.h"

#include "fuzz/fuzz_input.h"

using namespace qublet;

// Whatever is stored, it is a layout: each button once at most, and it comes back from what is stored of it. Every
// button is either in it or beside it.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ToolbarLayout layout = LayoutFromText(TextOf(data, size));
  Require(LayoutFromText(LayoutText(layout)) == layout);
  const ToolbarLayout beside = ButtonsBeside(layout);
  for (int button = 1; button < static_cast<int>(kToolButtons.size()); ++button) {
    if (kToolButtons[static_cast<std::size_t>(button)].IsSeparator()) continue;
    Require(std::ranges::count(layout, button) + std::ranges::count(beside, button) == 1);
  }
  for (const int button : layout) Require(button >= 1 && button < static_cast<int>(kToolButtons.size()));
  return 0;
}
