// recent_files.h - the files opened or saved last, kept in the user's profile.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace cantorix {

class ProfileStore;

class RecentFiles {
 public:
  static constexpr std::size_t kMost = 5;

  explicit RecentFiles(ProfileStore& profile) : profile_(profile) {}

  // Reads the list of the last run.
  void Load();
  // Puts `path`, made absolute, in front; an entry it already had goes, and so does a sixth one.
  // A profile that cannot be written costs the next run its list, nothing else.
  void Add(const std::string& path);
  // Drops an entry, for a file that is no longer there.
  void Remove(const std::string& path);

  // The most recent one first.
  const std::vector<std::string>& paths() const { return paths_; }

 private:
  void Store();

  ProfileStore& profile_;
  std::vector<std::string> paths_;
};

}  // namespace cantorix
