// Runs a target over every file of the folders named: replay FOLDER...
// Built with any compiler, so that what fuzzing once found is tried in every run of the tests.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.hpp"

namespace {

std::vector<std::filesystem::path> files_below(const char* folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) {
      files.push_back(entry.path());
    }
  }
  std::ranges::sort(files);
  return files;
}

void replay(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string content((std::istreambuf_iterator<char>(file)), {});
  // The last name printed is that of the input that broke something.
  std::printf("%s\n", path.c_str());
  std::fflush(stdout);
  run_target(content);
}

}  // namespace

int main(int argc, char** argv) {
  size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const auto& path : files_below(argv[i])) {
      replay(path);
      ++count;
    }
  }
  std::printf("%zu inputs\n", count);
  return count > 0 ? 0 : 1;
}
