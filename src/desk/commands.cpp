#include "desk/commands.h"

#include <utility>

namespace qublet {

void Commands::Bind(CommandName command, std::function<void()> handler) {
  handlers_[command.Index()] = std::move(handler);
}

void Commands::Run(const std::function<void()>& handler) const {
  if (handler && !feedback_.Busy()) handler();
}

bool Commands::IsEnabled(CommandName command, const ListFacts& list) const {
  const MenuRow& row = command.Row();
  const bool runs = IsBound(command) || row.IsSubmenu() || row.IsSeparator();
  return runs && row.available(list);
}

}  // namespace qublet
