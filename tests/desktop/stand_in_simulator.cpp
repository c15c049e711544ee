// Stands in for the four simulator programs: it notes what it was started with and leaves the
// result that the test asked for, under the name that the test asked for.
//
//   STAND_IN_RESULT  the text of the result file
//   STAND_IN_FILE    its name, beside the program
#include <cstdlib>
#include <filesystem>
#include <fstream>

int main(int argc, char** argv) {
  const std::filesystem::path folder = std::filesystem::path(argv[0]).parent_path();
  {
    std::ofstream told(folder / "arguments.part");
    for (int i = 1; i < argc; ++i) told << argv[i] << '|';
  }
  const char* file = std::getenv("STAND_IN_FILE");
  const char* result = std::getenv("STAND_IN_RESULT");
  if (file != nullptr && result != nullptr) std::ofstream(folder / file) << result;
  // Last, and at once: whoever finds it finds the result too.
  std::filesystem::rename(folder / "arguments.part", folder / "arguments.txt");
}
