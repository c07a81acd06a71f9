// ini_profile_store.cpp - finding, changing and escaping the lines of the profile.
#include "platform/ini_profile_store.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file.h"
#include "platform/file_error.h"
#include "platform/safe_file.h"

namespace cantorix {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// Bytes that end a line, that the line itself uses, or that an editor would not show.
bool NeedsEscape(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F || c == '\\' || c == '=' || c == '[' || c == ']' || c == ';' ||
         c == '#';
}

std::string Escape(std::string_view text) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool blankAtAnEnd = text[i] == ' ' && (i == 0 || i + 1 == text.size());
    if (!blankAtAnEnd && !NeedsEscape(text[i])) {
      escaped += text[i];
      continue;
    }
    const auto byte = static_cast<unsigned char>(text[i]);
    escaped += "\\x";
    escaped += kDigits[byte >> 4U];
    escaped += kDigits[byte & 0xFU];
  }
  return escaped;
}

std::string Unescape(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned byte = 0;
    const char* const digits = text.data() + i + 2;
    if (text.substr(i, 2) == "\\x" && i + 4 <= text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      plain += static_cast<char>(byte);
      i += 3;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

// Throws FileError when the file is there but cannot be read.
Lines ReadLines(const std::string& path) {
  std::error_code missing;
  if (!fs::exists(path, missing) && !missing) return {};
  Lines lines;
  std::istringstream stream(ReadWholeFile(File::OpenUnlocked(path)));
  // Memory that runs out must not look like the end of the file: what is read is written back.
  stream.exceptions(std::ios::badbit);
  for (std::string line; std::getline(stream, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

void WriteLines(const std::string& path, const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  std::error_code failure;
  fs::create_directories(fs::path(path).parent_path(), failure);
  if (failure) throw FileError(SystemReason(failure.value()));
  ReplaceFile(path, std::as_bytes(std::span(text)));
}

// Where a section stands: its lines are [begin, end) behind its header.
struct SectionSpan {
  std::size_t begin = 0;
  std::size_t end = 0;
  bool found = false;
};

SectionSpan FindSection(const Lines& lines, const std::string& section) {
  const std::string header = "[" + Escape(section) + "]";
  SectionSpan span;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (span.found && lines[i].starts_with('[')) return span;
    if (span.found) span.end = i + 1;
    if (!span.found && lines[i] == header) span = {i + 1, i + 1, true};
  }
  return span;
}

// Index of the entry's line, or span.end.
std::size_t FindEntry(const Lines& lines, const SectionSpan& span, const std::string& prefix) {
  std::size_t i = span.begin;
  while (i < span.end && !lines[i].starts_with(prefix)) ++i;
  return i;
}

}  // namespace

std::optional<std::string> IniProfileStore::ReadText(const std::string& section,
                                                     const std::string& entry) const {
  const Lines lines = ReadLines(path_);
  const SectionSpan span = FindSection(lines, section);
  const std::string prefix = Escape(entry) + "=";
  const std::size_t i = FindEntry(lines, span, prefix);
  if (i == span.end) return std::nullopt;
  return Unescape(std::string_view(lines[i]).substr(prefix.size()));
}

bool IniProfileStore::WriteText(const std::string& section, const std::string& entry,
                                const std::string& text) {
  try {
    Lines lines = ReadLines(path_);
    SectionSpan span = FindSection(lines, section);
    if (!span.found) {
      lines.push_back("[" + Escape(section) + "]");
      span = {lines.size(), lines.size(), true};
    }
    const std::string prefix = Escape(entry) + "=";
    const std::size_t i = FindEntry(lines, span, prefix);
    if (i == span.end) lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(i), "");
    lines[i] = prefix + Escape(text);
    WriteLines(path_, lines);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

std::string UserProfilePath() {
  static constexpr const char* kName = "/Orvanta/Cantorix.ini";
  const char* const configured = std::getenv("XDG_CONFIG_HOME");
  if (configured != nullptr && configured[0] == '/') return std::string(configured) + kName;
  const char* home = std::getenv("HOME");
  if (home == nullptr || home[0] == '\0') {
    const passwd* const user = ::getpwuid(::getuid());
    home = user == nullptr ? nullptr : user->pw_dir;
  }
  return home == nullptr ? std::string() : std::string(home) + "/.config" + kName;
}

}  // namespace cantorix
