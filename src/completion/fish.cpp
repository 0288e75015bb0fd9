#include "completion/shells.hpp"

namespace {

constexpr const char* fish_begin = R"(# Completes the command line of @PROGRAM@ in fish.
)";

constexpr const char* fish_channels = R"(
# The numbers of the channels that have a render-manager file.
function __@PROGRAM@_channels
    for file in /mnt/main/tv/rendermgr/channel*
        string match -r '(?<=/channel)[0-9]+$' $file
    end
end
)";

constexpr const char* fish_guide_channels = R"(
# The ids of the channels of the configuration that the line names, or of the usual one.
function __@PROGRAM@_ids
    set -l file @CONFIG_FILE@
    set -l before
    for word in (commandline -opc)
        test "$before" = --@CONFIG_OPTION@; and set file $word
        string match -q -- '--@CONFIG_OPTION@=*' $word
        and set file (string replace -- --@CONFIG_OPTION@= '' $word)
        set before $word
    end
    set file (string replace -r '^~/' ~/ -- $file)
    test -f "$file" -a -r "$file"; or return
    string replace -rf '^[ \t]*\[[ \t]*([[:alnum:]._-]+)[ \t]*\].*' '$1' <$file
end
)";

/// The arguments that offer values for the option.
std::string fish_value(const OptionInfo& option) {
  switch (option.offer) {
    case Offer::files:
      return " -r -F";
    case Offer::channels:
      return " -x -a '(__@PROGRAM@_channels)'";
    case Offer::guide_channels:
      return " -x -a '(__@PROGRAM@_ids)'";
    case Offer::words:
      return std::string(" -x -a '") + option.words + "'";
    default:
      return " -x";
  }
}

}  // namespace

std::string fish_completion(const ProgramInfo& program) {
  std::string text = fish_begin;
  text += has_offer(program, Offer::channels) ? fish_channels : "";
  text += has_offer(program, Offer::guide_channels) ? fish_guide_channels : "";
  text += program.operands == Offer::files ? "\n" : "\ncomplete -c @PROGRAM@ -f\n";
  if (program.operands == Offer::guide_channels) {
    text += "complete -c @PROGRAM@ -a '(__@PROGRAM@_ids)'\n";
  }
  for (const OptionInfo& option : program.options) {
    if (option.help != nullptr) {
      text += std::string("complete -c @PROGRAM@ -l ") + option.name +
              (option.value != nullptr ? fish_value(option) : "") + " -d '" + short_help(option) +
              "'\n";
    }
  }
  return filled(text, {{"@CONFIG_OPTION@", program.config_option},
                       {"@CONFIG_FILE@", program.config_file},
                       {"@PROGRAM@", program.name}});
}
