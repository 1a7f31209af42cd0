#pragma once

#include <QDialog>
#include <QWidget>

#include "desk/commands.h"
#include "desk/window_feedback.h"
#include "engine/engine.h"
#include "platform/background.h"

namespace qublet {

// What the windows of the tools work with. One is made and handed to each tool; it outlives their windows.
struct Desk {
  Engine& engine;
  QWidget& main;  // the main window, owner of the others
  WindowFeedback& feedback;
  Background& background;  // the one that asks players

  // Places a window beside the main one and shows it; gives what it ends with.
  int ShowModal(QDialog& form) const;
  // False for an empty list, which the user is told.
  bool HasItems() const;
};

}  // namespace qublet
