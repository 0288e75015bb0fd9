#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "platform/system/file.hpp"
#include "publish/publish_state.hpp"

/// What became of a page.
enum class Outcome {
  published,
  unchanged,      ///< its bytes are the same, so it was not replaced
  would_publish,  ///< the run writes nothing
  refused,        ///< by a guard; the old page stays
  failed,         ///< the old page stays
};

/// Writes the text of a page to the file. False, with errno set, when that fails.
using WritePage = std::function<bool(int file)>;

/// A folder of a web server, into which this run alone publishes while the object lives.
class WebFolder {
 public:
  /// Waits until no other run publishes into the folder, and says on standard error that it waits.
  /// A dry run neither waits nor writes. After a failure error() has the reason.
  WebFolder(const std::string& path, bool is_dry_run);

  const std::string& error() const { return error_; }
  const std::string& path() const { return path_; }  ///< without links
  PublishState& state() { return state_; }
  const PublishState& state() const { return state_; }

  /// The state that the last run left is damaged, so nothing is compared with it.
  bool had_damaged_state() const { return has_damaged_state_; }

  /// Removes the drafts of these pages that a killed run has left.
  void remove_old_drafts(const std::set<std::string>& pages);

  /// Replaces a page by a new one: a draft, which is synced to the disk and renamed. A page with
  /// the same bytes is not replaced. `reason` is set when it failed.
  Outcome publish(const std::string& page, const WritePage& write, std::string& reason);

  /// Writes the state, and syncs the folder. False, with `reason`, when that fails.
  bool finish(std::string& reason);

 private:
  bool lock(const std::string& path);
  void read_state();
  bool is_unchanged(const std::string& page, int text, uint64_t fingerprint) const;
  bool replace(const std::string& page, int text, std::string& reason);

  bool is_dry_run_;
  std::string path_;
  std::string error_;
  FileDescriptor lock_;
  PublishState state_;
  bool has_damaged_state_ = false;
};
