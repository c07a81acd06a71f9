// file_systems.cpp - by the numbers of statfs and by the names in the table of mounts.
#include "platform/file_systems.h"

#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <istream>
#include <sstream>
#include <string>
#include <string_view>

namespace cantorix {

bool MayKeepWaiting(int descriptor) {
  // NFS, SMB in three versions, FUSE, 9P, Ceph, AFS, Coda, GFS2, OCFS2 and Lustre (statfs(2)).
  static constexpr std::array<std::uint32_t, 12> kKinds{
      0x6969,     0x517b,     0xff534d42, 0xfe534d42, 0x65735546, 0x01021997,
      0x00c36400, 0x5346414f, 0x73757245, 0x01161970, 0x7461636f, 0x0bd00bd0};
  struct statfs system {};
  if (::fstatfs(descriptor, &system) != 0) return true;  // an own file system would say
  return std::find(kKinds.begin(), kKinds.end(), static_cast<std::uint32_t>(system.f_type)) !=
         kKinds.end();
}

bool HasRemoteFileSystem(std::istream& mounts) {
  static constexpr std::array<std::string_view, 14> kNames{
      "nfs", "nfs4", "cifs", "smb3", "smbfs", "fuse",  "fuseblk",
      "9p",  "ceph", "afs",  "coda", "gfs2",  "ocfs2", "lustre"};
  for (std::string line; std::getline(mounts, line);) {
    std::istringstream fields(line);
    std::string device, folder, kind;
    fields >> device >> folder >> kind;
    kind.erase(std::min(kind.find('.'), kind.size()));  // fuse.NAME
    if (std::find(kNames.begin(), kNames.end(), kind) != kNames.end()) return true;
  }
  return false;
}

}  // namespace cantorix
