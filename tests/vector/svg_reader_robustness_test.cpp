#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

#include "platform/core/base/log.h"
#include "vector/vector_reader_svg.h"

namespace qx {
namespace {

std::vector<std::string> SeedFiles() {
  std::vector<std::string> texts;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(std::string(QX_TEST_DATA_DIR) + "/svg")) {
    // The exponential use chain reaches the command limit on nearly every
    // mutation, which costs seconds each; its own test covers it.
    if (entry.path().extension() != ".svg" || entry.path().stem() == "use_chain") continue;
    std::ifstream in(entry.path(), std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return texts;
}

// Pieces that steer a mutated file into the reader's less travelled paths.
const char* const kSnippets[] = {
    "<g>", "</g>", "<defs>", "</defs>", "<use xlink:href=\"#a\"/>", "<g id=\"a\">", "fill=\"url(#g)\" ",
    "<linearGradient id=\"g\"/>", "<style>.a{fill:red}</style>", "transform=\"rotate(1e39)\" ", "\"", "<",
    "&amp;", "<![CDATA[x]]>", "\xC3", "\x00", "&st0;", "<!ENTITY x \"&st1;&st1;\">", "]>",
};

std::string Mutate(std::string text, std::mt19937& random) {
  const int steps = 1 + static_cast<int>(random() % 4);
  for (int i = 0; i < steps; ++i) {
    const std::size_t at = text.empty() ? 0 : random() % text.size();
    switch (random() % 4) {
      case 0: if (!text.empty()) text[at] = static_cast<char>(random() % 256); break;
      case 1: text.erase(at, random() % 16); break;
      case 2: text.insert(at, text.substr(at, random() % 64)); break;
      default: text.insert(at, kSnippets[random() % std::size(kSnippets)]); break;
    }
  }
  return text;
}

// A hostile file may fail, but must give a verdict: no crash, no hang, nothing
// the sanitizers object to, and a document whose groups still balance when the
// read ended by itself.
TEST(SvgReaderRobustnessTest, MutatedFilesAlwaysGiveAVerdict) {
  TqxLog::SetStderrEnabled(false);
  std::mt19937 random(20261123);
  const std::vector<std::string> seeds = SeedFiles();
  ASSERT_FALSE(seeds.empty());
  for (int round = 0; round < 40; ++round) {
    for (const std::string& seed : seeds) {
      const std::string text = Mutate(seed, random);
      std::string hint;
      const TqxResultParsing result = TqxVectorReaderSVG::CheckContent(text, hint);
      ASSERT_LE(static_cast<int>(result), static_cast<int>(TqxResultParsing::Failed)) << text;

      TqxVectorDocument doc;
      TqxVectorReaderSVG reader(doc);
      std::istringstream stream(text);
      try {
        reader.LoadFromStream(stream);
      } catch (const std::exception&) {
        continue;
      }
      int depth = 0;
      for (const auto& command : doc.Commands) {
        if (command->Kind == TqxVectorCommandKind::BeginGroup) ++depth;
        if (command->Kind == TqxVectorCommandKind::EndGroup) --depth;
        ASSERT_GE(depth, 0) << text;
      }
      ASSERT_EQ(depth, 0) << text;
    }
  }
  TqxLog::SetStderrEnabled(true);
}

}  // namespace
}  // namespace qx
