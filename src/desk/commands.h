#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

#include "desk/menu_table.h"
#include "platform/feedback.h"

namespace qublet {

// The name of an entry of the menus. One that isn't in the table doesn't compile.
class CommandName {
 public:
  consteval CommandName(const char* name) : index_(IndexOf(name)) {  // NOLINT(google-explicit-constructor)
    if (index_ == kMenu.size()) throw "no entry of the menus bears this name";
  }

  // For names that are known only when the program runs.
  static constexpr std::optional<CommandName> Find(std::string_view name) {
    const std::size_t index = IndexOf(name);
    return index == kMenu.size() ? std::nullopt : std::optional(CommandName(index));
  }
  // The entry in that place of the table.
  static constexpr CommandName At(std::size_t index) { return CommandName(index); }

  constexpr std::size_t Index() const { return index_; }
  constexpr const MenuRow& Row() const { return kMenu[index_]; }
  constexpr bool operator==(const CommandName&) const = default;

 private:
  constexpr explicit CommandName(std::size_t index) : index_(index) {}

  static constexpr std::size_t IndexOf(std::string_view name) {
    const auto* const row =
        std::ranges::find_if(kMenu, [&](const MenuRow& menu_row) { return !name.empty() && menu_row.name == name; });
    return static_cast<std::size_t>(row - kMenu.begin());
  }

  std::size_t index_;
};

// What the entries of the menus run. Menu, toolbar, keys, header and mouse all come through Run, the one place that
// refuses while a batch runs.
class Commands {
 public:
  explicit Commands(const Feedback& feedback) : feedback_(feedback) {}
  Commands(const Commands&) = delete;
  Commands& operator=(const Commands&) = delete;

  void Bind(CommandName command, std::function<void()> handler);
  // What an unbound command stands for has no tool.
  bool IsBound(CommandName command) const { return handlers_[command.Index()] != nullptr; }

  // Nothing happens while a batch runs, or when nothing is bound.
  void Run(CommandName command) const { Run(handlers_[command.Index()]); }
  // For what has no entry of its own in the table.
  void Run(const std::function<void()>& handler) const;

  // Whether the entry can be chosen. A submenu or separator needs no handler for that.
  bool IsEnabled(CommandName command, const ListFacts& list) const;

 private:
  const Feedback& feedback_;
  std::array<std::function<void()>, kMenu.size()> handlers_;
};

}  // namespace qublet
