#include "measure.h"
#include "playlist_measures.h"

int main(int argc, char** argv) {
  return qublet::measures::RunMeasures(qublet::measures::PlaylistMeasures(), {argv + 1, argv + argc});
}
