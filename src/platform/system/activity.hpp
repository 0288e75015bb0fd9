#pragma once

/// What the run is at while this object lives, for the message of a limit that ends it: "filling
/// gaps of" some file. Activities nest as blocks of code do; without a file it is that of the
/// activity around it. The texts are not copied.
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

/// The innermost activity, or null. A handler of signals may call this.
const Activity* current_activity();
