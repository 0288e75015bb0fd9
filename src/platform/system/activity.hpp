#pragma once

/// What the run is doing while this object lives, for example "filling gaps of" some file. The
/// message of a limit that ends the run shows it. Activities nest like blocks of code. Without a
/// file, the file of the enclosing activity is used. The texts are not copied.
class Activity {
 public:
  explicit Activity(const char* doing, const char* file = nullptr);
  Activity(const Activity&) = delete;
  Activity& operator=(const Activity&) = delete;
  ~Activity();

  const char* doing() const { return doing_; }
  const char* file() const { return file_; }

 private:
  const Activity* around_;
  const char* doing_;
  const char* file_;
};

/// The innermost activity, or null. A signal handler may call this.
const Activity* current_activity();
