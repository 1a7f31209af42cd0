#include "playlist/columns.h"

namespace qublet {

const std::array<ColumnDesign, kColumnCount> kColumns{{
    {"FileName", 255},
    {"Time", 60, true},
    {"Size", 80, true},
    {"Path", 400},
    {"ID", 80},
    {"Layer", 80},
    {"Bitrate", 80},
    {"Samplerate", 100},
    {"Mode", 100},
    {"HiddenLen", 0},
    {"HiddenSize", 0},
    {"Original Order", 50},
}};

}  // namespace qublet
