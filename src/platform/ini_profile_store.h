// ini_profile_store.h - the user's profile as an INI file: "[section]" lines and "entry=text"
// lines. Each call reads the file again, and a write replaces it as a whole and syncs it, so that
// what is read back is what the disk holds. Lines it does not understand are left as they are.
#pragma once

#include <string>

#include "platform/services.h"

namespace cantorix {

class IniProfileStore : public ProfileStore {
 public:
  // The file and its folders are made by the first write.
  explicit IniProfileStore(std::string path) : path_(std::move(path)) {}

  // Nothing without a file or such an entry. Throws FileError when there is a file that cannot be
  // read: what it holds must not be taken for absent, and written anew.
  std::optional<std::string> ReadText(const std::string& section,
                                      const std::string& entry) const override;
  // False, with the earlier file whole, when it cannot be read or written. Any bytes can be kept;
  // those that would break a line are escaped as \xHH.
  bool WriteText(const std::string& section, const std::string& entry,
                 const std::string& text) override;

 private:
  std::string path_;
};

// "Orvanta/Cantorix.ini" in $XDG_CONFIG_HOME, when that is an absolute path, else in the user's
// ~/.config. Empty when the user has no home.
std::string UserProfilePath();

}  // namespace cantorix
