#pragma once

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// Sets the process's time zone for the life of a test.
class Zone {
 public:
  explicit Zone(const char* name) {
    if (const char* before = std::getenv("TZ")) {
      before_ = before;
    }
    setenv("TZ", name, 1);
    tzset();
  }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;
  ~Zone() {
    setenv("TZ", before_.c_str(), 1);
    tzset();
  }

 private:
  std::string before_ = "UTC";
};

/// Local date and time of t as "YYYY-MM-DD hh:mm:ss".
inline std::string local_text(time_t t) {
  std::tm tm{};
  localtime_r(&t, &tm);
  char text[64];
  return {text, std::strftime(text, sizeof text, "%F %T", &tm)};
}

/// Every name in the system's zone database, links included.
inline std::vector<std::string> all_zones() {
  std::vector<std::string> zones;
  std::ifstream database("/usr/share/zoneinfo/tzdata.zi");
  std::string line;
  while (std::getline(database, line)) {
    std::istringstream words(line);
    std::string kind;
    std::string name;
    std::string link;
    words >> kind >> name >> link;
    if (kind == "Z" || kind == "L") {
      zones.push_back(kind == "Z" ? name : link);
    }
  }
  return zones;
}
