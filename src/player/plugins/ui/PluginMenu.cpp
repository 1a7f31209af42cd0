#include "player/plugins/ui/PluginMenu.h"

#include "platform/qt/shown_text.h"

namespace qublet {

PluginMenu::PluginMenu(QMenu& menu, const Commands& commands, Engine& engine) : plugins_(engine) {
  for (std::int16_t number = 1; number <= kPluginCount; ++number) {
    QAction* const entry = menu.addAction(QString());
    entry->setObjectName(QStringLiteral("plug%1").arg(number));
    QObject::connect(entry, &QAction::triggered, &menu,
                     [this, number, &commands] { commands.Run([this, number] { plugins_.plug_Click(number); }); });
    plug_[static_cast<std::size_t>(number) - 1] = entry;
  }
  Show();
}

void PluginMenu::LoadPluginMenu() {
  plugins_.LoadPluginMenu();
  Show();
}

// Without a plug-in the last entry says so.
void PluginMenu::Show() {
  for (std::int16_t number = 1; number <= kPluginCount; ++number) {
    const Plugin& plugin = plugins_.Slot(number);
    const bool used = !plugin.Name.empty();
    QAction& entry = *plug_[static_cast<std::size_t>(number) - 1];
    entry.setText(used ? ShownInMenu(PluginCaption(plugin)) : QObject::tr("None Loaded..."));
    entry.setStatusTip(used ? QObject::tr("Hand the selected items to %1").arg(ShownText(plugin.InstallPath))
                            : QString());
    entry.setEnabled(used);
    entry.setVisible(used || (plugins_.IsEmpty() && number == kPluginCount));
  }
}

}  // namespace qublet
