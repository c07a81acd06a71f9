// table_lines.cpp - blocks read, cut at the ends of lines.
#include "measure/table_lines.h"

#include <span>

namespace cantorix {
namespace {

constexpr std::size_t kBlockBytes = 65536;
constexpr const char* kLineEnds = "\r\n";

}  // namespace

TableLines::TableLines(const std::string& path) : file_(File::OpenForReading(path)) {}

std::string_view TableLines::Next() {
  for (;;) {
    at_ = text_.find_first_not_of(kLineEnds, at_);
    if (at_ == std::string::npos) at_ = text_.size();
    const std::size_t end = text_.find_first_of(kLineEnds, at_);
    if (end == std::string::npos && ReadBlock()) continue;
    const std::string_view line = std::string_view(text_).substr(at_, end - at_);
    at_ += line.size();
    return line;
  }
}

// Behind what is left of the last one. False at the end of the file.
bool TableLines::ReadBlock() {
  text_.erase(0, at_);
  at_ = 0;
  const std::size_t kept = text_.size();
  text_.resize(kept + kBlockBytes);
  const auto room = std::span(text_).subspan(kept);
  const std::size_t got = file_.ReadSome(read_, std::as_writable_bytes(room));
  text_.resize(kept + got);
  read_ += static_cast<std::int64_t>(got);
  return got > 0;
}

}  // namespace cantorix
