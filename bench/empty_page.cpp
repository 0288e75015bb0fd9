// A CGI program that answers with an empty page: what starting any program with these libraries
// costs a web server.

#include <unistd.h>

#include <cstdlib>
#include <string_view>

int main() {
  constexpr std::string_view header = "Content-Type: text/html\n\n";
  const ssize_t written = write(STDOUT_FILENO, header.data(), header.size());
  return written == static_cast<ssize_t>(header.size()) ? EXIT_SUCCESS : EXIT_FAILURE;
}
