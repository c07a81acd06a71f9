// file.h - an open file of the host: positioned reads and writes that say why they failed.
// Readers share a lock, a writer has one alone, and nobody waits for one: a file that is held
// against us counts as one that cannot be opened. File systems without locks count as success.
// Saving over a file goes through safe_file.h instead.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace cantorix {

class Descriptor;
class File;
class RemoteFile;
struct Patience;

// Bytes of an open file, from `offset` on.
struct FileStretch {
  const File* file;
  std::int64_t offset;
};

class File {
 public:
  // Each throws FileError when the file cannot be opened, created or locked.
  // Takes the shared lock: any number of readers, and no writer beside them.
  static File OpenForReading(const std::string& path);
  // The same for a user who may cancel when the system does not answer, if it is for opens: throws
  // Abandoned then. On a network folder so do Size and the reads, which belong to this thread
  // alone; what is duplicated waits as any file. What `patience` names outlives the file.
  static File OpenForReading(const std::string& path, const Patience& patience);
  // Without a lock, for a file that is only ever replaced as a whole: its readers keep no writer
  // out.
  static File OpenUnlocked(const std::string& path);
  // Creates or truncates, after the lock is held: a refused file keeps its bytes.
  static File Create(const std::string& path);
  // Opens or creates without truncating, for reading and writing.
  static File OpenForUpdate(const std::string& path);
  // Makes a file that was not there, for this user alone. Whatever has the name already, a symbolic
  // link included, makes it fail and stays as it is.
  static File CreateTemporary(const std::string& path);
  // Opens such a file again, with its lock; a symbolic link makes it fail.
  static File OpenTemporary(const std::string& path);

  File();
  ~File();
  File(File&& other) noexcept;
  File& operator=(File&& other) noexcept;

  bool isOpen() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }
  const std::string& path() const { return path_; }
  // Opened with patience, on a network folder.
  bool isRemote() const { return remote_ != nullptr; }

  std::int64_t Size() const;
  // Reads up to out.size() bytes from `offset`; fewer only at the end of the file.
  std::size_t ReadSome(std::int64_t offset, std::span<std::byte> out) const;
  // Reads exactly out.size() bytes or throws FileError naming the offset where the file ends.
  void ReadExactly(std::int64_t offset, std::span<std::byte> out) const;
  void Write(std::int64_t offset, std::span<const std::byte> bytes);
  // Writes `count` bytes of another file at `offset`, without a way through this program where the
  // system can do that.
  void WriteFrom(const FileStretch& stretch, std::int64_t offset, std::int64_t count);
  // Cuts the file to `bytes`, or lengthens it by zeros.
  void Resize(std::int64_t bytes);
  // Through to the disk. File systems that cannot say so count as success.
  void Sync();
  // The same file with its lock, for one that may outlive this one.
  File Duplicate() const;
  void Close();

 private:
  File(Descriptor descriptor, std::string path);

  std::string path_;
  int descriptor_ = -1;
  std::unique_ptr<const RemoteFile> remote_;  // owns the descriptor; null: this does
};

// All bytes of an open file, or of the one at `path`, opened for reading. Throws FileError.
std::string ReadWholeFile(const File& file);
std::string ReadWholeFile(const std::string& path);

// Reverses the bytes of each sample on a big-endian machine; does nothing elsewhere. Little-endian
// files hold their samples as a little-endian memory does.
void SwapFromLittle(std::span<std::int16_t> samples);

}  // namespace cantorix
