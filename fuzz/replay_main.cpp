// replay_main.cpp - runs a fuzz target over stored inputs without a fuzzer.
// Arguments are files and folders (searched through). A target stops the program when it finds a
// fault; an empty corpus or an unreadable input is a failure too, so that nothing passes unseen.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> InputsUnder(const fs::path& path) {
  if (!fs::is_directory(path)) return {path};
  std::vector<fs::path> inputs;
  for (const auto& entry : fs::recursive_directory_iterator(path)) {
    if (entry.is_regular_file()) inputs.push_back(entry.path());
  }
  return inputs;
}

bool Replay(const fs::path& input) {
  std::ifstream stream(input, std::ios::binary);
  if (!stream) return false;
  std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  const std::vector<std::uint8_t> bytes(text.begin(), text.end());
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const fs::path& input : InputsUnder(argv[i])) {
      if (!Replay(input)) {
        std::fprintf(stderr, "%s: cannot be read\n", input.c_str());
        return 1;
      }
      ++count;
    }
  }
  std::printf("%zu inputs replayed\n", count);
  return count > 0 ? 0 : 1;
}
