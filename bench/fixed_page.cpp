// A CGI program that prints the page in the file "page.html" beside it, and does nothing else.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "platform/system/file.hpp"

int main() {
  constexpr std::string_view header = "Content-Type: text/html\n\n";
  static char response[1024 * 1024];
  std::ranges::copy(header, response);
  const FileDescriptor page = open_regular_file(AT_FDCWD, "page.html");
  const std::optional<size_t> size =
      read_fully(page.get(), response + header.size(), sizeof response - header.size());
  if (!size || !write_fully(STDOUT_FILENO, {response, header.size() + *size})) {
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
