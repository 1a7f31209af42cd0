// Stands in a folder from which no program is to load it.
extern "C" __declspec(dllexport) int Planted() {
  return 1;
}
