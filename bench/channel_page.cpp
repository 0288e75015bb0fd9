// The CGI program of the example channel: becomes the program with the arguments of its page, as a
// shell script in its place would, without the shell.

#include <unistd.h>

#include <cstdlib>

int main() {
  setenv("TZ", "Europe/London", 1);
  if (chdir(CHANNEL_FOLDER) == 0) {
    execl(CHANNEL_PROGRAM, CHANNEL_PROGRAM, "--schedule", "week.schedule", "--time", "1772733600",
          "--format", "html", "--cgi", nullptr);
  }
  return EXIT_FAILURE;
}
