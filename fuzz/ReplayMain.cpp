#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int kVariations = 300;

void Run(const std::string& text) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

// Replaces, removes or doubles a piece, a few times over.
std::string Varied(std::string text, std::mt19937& random) {
  for (auto n = 1 + random() % 4; n > 0 && !text.empty(); --n) {
    const std::size_t at = random() % text.size();
    const std::size_t size = random() % 8;
    if (random() % 3 == 0)
      text[at] = static_cast<char>(random());
    else if (random() % 2 == 0)
      text.erase(at, size);
    else
      text.insert(random() % text.size(), text.substr(at, size));
  }
  return text;
}

}  // namespace

/// Replays every file of a folder, and variations of it that are the same in every run.
int main(int argc, char** argv) {
  std::mt19937 random(1);
  int files = 0;
  for (int i = 1; i < argc; ++i)
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string text{std::istreambuf_iterator<char>(file), {}};
      ++files;
      Run(text);
      for (int variation = 0; variation < kVariations; ++variation) Run(Varied(text, random));
    }
  std::printf("%d files, %d runs\n", files, files * (kVariations + 1));
  return files > 0 ? 0 : 1;
}
