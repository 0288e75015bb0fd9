#include "completion/shells.hpp"

namespace {

constexpr const char* bash_begin =
    R"(# Completes the command line of @PROGRAM@ in bash, and needs nothing but bash.

# Offers those of the words that begin like the word under the cursor.
_@PROGRAM@_offer() {
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "$word")
}
)";

constexpr const char* bash_files = R"(
# A word that begins with a quotation mark matches no file here; bash itself then goes on with it.
_@PROGRAM@_files() {
  mapfile -t COMPREPLY < <(compgen -f -- "$word")
  compopt -o filenames -o default 2> /dev/null
}
)";

constexpr const char* bash_channels = R"(
# The numbers of the channels that have a render-manager file.
_@PROGRAM@_channels() {
  local file numbers=()
  for file in /mnt/main/tv/rendermgr/channel[0-9]*; do
    file=${file##*/channel}
    [[ $file == *[!0-9]* ]] || numbers+=("$file")
  done
  _@PROGRAM@_offer "${numbers[*]}"
}
)";

constexpr const char* bash_guide_channels = R"(
# The configuration that the line names, or the usual one.
_@PROGRAM@_configuration() {
  local i
  configuration=@CONFIG_FILE@
  for ((i = 1; i < COMP_CWORD - 1; ++i)); do
    [ "${COMP_WORDS[i]}" = --@CONFIG_OPTION@ ] || continue
    configuration=${COMP_WORDS[i + 1]}
    [ "$configuration" != = ] || configuration=${COMP_WORDS[i + 2]}
    [[ $configuration != '~/'* ]] || configuration=$HOME/${configuration:2}
  done
}

# The ids of its channels. A file's text is never handed to compgen -W, which would carry out what it
# holds.
_@PROGRAM@_ids() {
  local configuration line
  _@PROGRAM@_configuration
  [ -f "$configuration" ] && [ -r "$configuration" ] || return
  while IFS= read -r line || [ -n "$line" ]; do
    [[ $line =~ ^[[:blank:]]*\[[[:blank:]]*([[:alnum:]._-]+)[[:blank:]]*\] ]] || continue
    [[ ${BASH_REMATCH[1]} != "$word"* ]] || COMPREPLY+=("${BASH_REMATCH[1]}")
  done < "$configuration"
}
)";

constexpr const char* bash_main = R"(
_@PROGRAM@() {
  local options='@OPTIONS@'
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} dashes=--
  COMPREPLY=()

@BEGIN@
  case $before in
@CASES@  esac
@REST@
}

complete -F _@PROGRAM@ @PROGRAM@
)";

constexpr const char* bash_any_dashes = R"(  # Any number of dashes begins an option.
  [[ $before != -* ]] || before=--${before#"${before%%[!-]*}"}
  [[ $word != -?* ]] || dashes=${word%%[!-]*})";

constexpr const char* bash_equals_sign =
    R"(  # To bash, the = between an option and its value is a word.
  if [ "$word" = = ]; then
    word=
  elif [ "$before" = = ] && [ "$COMP_CWORD" -gt 2 ]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi)";

constexpr const char* bash_options = R"(  _@PROGRAM@_offer "$dashes${options// / $dashes}")";

constexpr const char* bash_options_or_ids = R"(  case $word in
    -*) _@PROGRAM@_offer "$dashes${options// / $dashes}" ;;
    *) _@PROGRAM@_ids ;;
  esac)";

constexpr const char* bash_options_or_files = R"(  case $word in
    -*) _@PROGRAM@_offer "$dashes${options// / $dashes}" ;;
    *) _@PROGRAM@_files ;;
  esac)";

/// The command that offers values for the option.
std::string bash_call(const OptionInfo& option) {
  switch (option.offer) {
    case Offer::files:
      return "_@PROGRAM@_files; ";
    case Offer::channels:
      return "_@PROGRAM@_channels; ";
    case Offer::guide_channels:
      return "_@PROGRAM@_ids; ";
    case Offer::words:
      return std::string("_@PROGRAM@_offer '") + option.words + "'; ";
    default:
      return "";
  }
}

}  // namespace

std::string bash_completion(const ProgramInfo& program) {
  std::string options;
  std::string cases;
  for (const OptionInfo& option : program.options) {
    if (option.help != nullptr) {
      options += (options.empty() ? "" : " ") + std::string(option.name);
    }
    if (option.value != nullptr) {
      cases += std::string("    --") + option.name + ") " + bash_call(option) + "return ;;\n";
    }
  }
  std::string text = bash_begin;
  text += has_offer(program, Offer::files) ? bash_files : "";
  text += has_offer(program, Offer::channels) ? bash_channels : "";
  text += has_offer(program, Offer::guide_channels) ? bash_guide_channels : "";
  text += bash_main;
  const char* begin = program.any_dashes ? bash_any_dashes : bash_equals_sign;
  const char* rest = program.operands == Offer::files            ? bash_options_or_files
                     : program.operands == Offer::guide_channels ? bash_options_or_ids
                                                                 : bash_options;
  return filled(text, {{"@BEGIN@", begin},
                       {"@OPTIONS@", options},
                       {"@CASES@", cases},
                       {"@REST@", rest},
                       {"@CONFIG_OPTION@", program.config_option},
                       {"@CONFIG_FILE@", program.config_file},
                       {"@PROGRAM@", program.name}});
}
