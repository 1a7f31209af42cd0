#include "media/editor/ui/add_tag_editor.h"

#include "media/editor/ui/Id3Info.h"

namespace qublet {

void AddTagEditor(Commands& commands, const Desk& desk) {
  commands.Bind("MEditId3", [&desk] {
    Id3Info window(desk.engine, desk.background, &desk.main);
    desk.ShowModal(window);
  });
}

}  // namespace qublet
