#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "check/check_options.hpp"
#include "completion/shells.hpp"
#include "driver/options.hpp"
#include "grab/grab_options.hpp"
#include "import/import_options.hpp"
#include "publish/publish_options.hpp"

namespace fs = std::filesystem;

namespace {

bool write_file(const fs::path& path, const std::string& text) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) {
    std::fprintf(stderr, "shell_completions: %s cannot be written\n", path.c_str());
  }
  return file.good();
}

bool write_completions(const ProgramInfo& program, const fs::path& folder) {
  const std::string name = program.name;
  return write_file(folder / "bash" / name, bash_completion(program)) &&
         write_file(folder / "zsh" / ("_" + name), zsh_completion(program)) &&
         write_file(folder / "fish" / (name + ".fish"), fish_completion(program));
}

const char* text_or_nothing(const char* text) {
  return text != nullptr ? text : "";
}

void print_options(const ProgramInfo& program) {
  for (const OptionInfo& option : program.options) {
    const std::string help = option.help != nullptr ? short_help(option) : "";
    std::printf("%s\t%s\t%s\t%s\t%s\n", program.name, option.name, text_or_nothing(option.value),
                text_or_nothing(option.words), help.c_str());
  }
}

}  // namespace

// Writes the completion files of each program into the given folder. Without an argument, prints
// one line for each option, with tabs between the fields: the program, the option's name, the name
// of its value, the allowed values if they are limited, and what it does. The last field is empty
// for an option that is not offered.
int main(int argc, char** argv) {
  const std::array<ProgramInfo, 5> programs = {printer_program(), check_program(), grab_program(),
                                               import_program(), publish_program()};
  for (const ProgramInfo& program : programs) {
    if (argc == 1) {
      print_options(program);
    } else if (!write_completions(program, argv[1])) {
      return EXIT_FAILURE;
    }
  }
  return EXIT_SUCCESS;
}
