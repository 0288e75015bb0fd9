#include "completion/shells.hpp"

namespace {

constexpr const char* zsh_begin = R"(#compdef @PROGRAM@
# Completes the command line of @PROGRAM@ in zsh.
)";

constexpr const char* zsh_channels = R"(
# The numbers of the channels that have a render-manager file.
_@PROGRAM@_channels() {
  local -a numbers
  numbers=(/mnt/main/tv/rendermgr/channel<->(N:t:s/channel//))
  compadd -a numbers
}
)";

constexpr const char* zsh_guide_channels = R"(
# The ids of the channels of the configuration that the line names, or of the usual one.
_@PROGRAM@_ids() {
  local file=${(Q)opt_args[--@CONFIG_OPTION@]:-@CONFIG_FILE@} line
  local match mbegin mend
  local -a ids
  file=${file/#\~\//$HOME/}
  [[ -f $file && -r $file ]] || return 1
  while IFS= read -r line || [[ -n $line ]]; do
    [[ $line =~ '^[[:blank:]]*\[[[:blank:]]*([[:alnum:]._-]+)[[:blank:]]*\]' ]] && ids+=($match[1])
  done < $file
  compadd -a ids
}
)";

std::string zsh_action(const OptionInfo& option) {
  switch (option.offer) {
    case Offer::files:
      return "_files";
    case Offer::channels:
      return "_@PROGRAM@_channels";
    case Offer::guide_channels:
      return "_@PROGRAM@_ids";
    case Offer::words:
      return std::string("(") + option.words + ")";
    default:
      return " ";
  }
}

/// The option in the form that _arguments reads.
std::string zsh_option(const ProgramInfo& program, const OptionInfo& option) {
  std::string text = option.use == Use::alone ? "(- *)" : option.use == Use::repeated ? "*" : "";
  text += std::string("--") + option.name;
  if (option.value != nullptr && !program.any_dashes) {
    text += "=";  // the value follows the "=" or is the next word
  }
  text += "[" + short_help(option) + "]";
  return option.value != nullptr ? text + ":" + option.value + ":" + zsh_action(option) : text;
}

}  // namespace

std::string zsh_completion(const ProgramInfo& program) {
  std::string text = zsh_begin;
  text += has_offer(program, Offer::channels) ? zsh_channels : "";
  text += has_offer(program, Offer::guide_channels) ? zsh_guide_channels : "";
  // With -S, "--" ends the options.
  text += program.any_dashes ? "\n_arguments" : "\n_arguments -S";
  for (const OptionInfo& option : program.options) {
    if (option.help != nullptr) {
      text += " \\\n  '" + zsh_option(program, option) + "'";
    }
  }
  text += program.operands == Offer::files            ? " \\\n  '*:FILE:_files'\n"
          : program.operands == Offer::guide_channels ? " \\\n  '*:CHANNEL:_@PROGRAM@_ids'\n"
                                                      : "\n";
  return filled(text, {{"@CONFIG_OPTION@", program.config_option},
                       {"@CONFIG_FILE@", program.config_file},
                       {"@PROGRAM@", program.name}});
}
