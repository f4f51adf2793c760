// Reading and drawing the Material icons (*_24px.svg of material-design-icons
// 3.0.1, fetched by bench/fetch-material-icons.sh), against librsvg parsing and
// rendering the same files in the same run. pugixml's parse alone is shown as
// the floor under any DOM-based reader. The last lines give the ratios.
//
// Before timing, every icon that reads with Success is drawn by both and the
// share of matching pictures is printed (svg_match.h says what matches).
// --svg_mismatch_dir=DIR writes the worst mismatches there as PNG pairs.

#include <benchmark/benchmark.h>
#include <cairo.h>
#include <librsvg/rsvg.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "platform/core/graphics/bitmap.h"
#include "platform/core/vector/vector_document.h"
#include "vector/vector_bitmap_writer.h"
#include "vector/vector_reader_svg.h"
#include "svg_match.h"

namespace {

namespace fs = std::filesystem;

constexpr int kSide = 48;

const fs::path& IconRoot() {
  static const fs::path root = fs::path(QX_BENCH_CACHE_DIR) / "material-design-icons";
  return root;
}

std::vector<fs::path> IconPaths() {
  std::vector<fs::path> paths;
  const fs::path& root = IconRoot();
  std::error_code error;
  if (!fs::is_directory(root, error)) return {};
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string name = entry.path().filename().string();
    if (entry.is_regular_file() && name.ends_with("_24px.svg") &&
        entry.path().parent_path().filename() == "production")
      paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

std::vector<std::string> LoadIcons() {
  std::vector<std::string> icons;
  for (const fs::path& path : IconPaths()) {
    std::ifstream in(path, std::ios::binary);
    icons.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return icons;
}

const std::vector<std::string>& Icons() {
  static const std::vector<std::string> icons = LoadIcons();
  return icons;
}

bool HaveIcons(benchmark::State& state) {
  if (!Icons().empty()) return true;
  state.SkipWithError("no icons: run bench/fetch-material-icons.sh first");
  return false;
}

// A stream over bytes in memory without a copy, as librsvg reads them.
class TMemoryBuffer : public std::streambuf {
public:
  explicit TMemoryBuffer(const std::string& text) {
    char* begin = const_cast<char*>(text.data());
    setg(begin, begin, begin + text.size());
  }
};

void ReadQx(const std::string& text, qx::TqxVectorDocument& document) {
  qx::TqxVectorReaderSVG reader(document);
  TMemoryBuffer buffer(text);
  std::istream stream(&buffer);
  reader.LoadFromStream(stream);
}

RsvgHandle* ParseRsvg(const std::string& text) {
  GError* error = nullptr;
  RsvgHandle* handle =
      rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(text.data()), text.size(), &error);
  if (error) g_error_free(error);
  return handle;
}

void BM_QxRead(benchmark::State& state) {
  if (!HaveIcons(state)) return;
  for (auto _ : state) {
    for (const std::string& icon : Icons()) {
      qx::TqxVectorDocument document;
      ReadQx(icon, document);
      benchmark::DoNotOptimize(document.Commands.data());
    }
  }
  state.SetItemsProcessed(state.iterations() * std::int64_t(Icons().size()));
}

void BM_RsvgParse(benchmark::State& state) {
  if (!HaveIcons(state)) return;
  for (auto _ : state) {
    for (const std::string& icon : Icons()) {
      RsvgHandle* handle = ParseRsvg(icon);
      benchmark::DoNotOptimize(handle);
      if (handle) g_object_unref(handle);
    }
  }
  state.SetItemsProcessed(state.iterations() * std::int64_t(Icons().size()));
}

void BM_QxReadRender(benchmark::State& state) {
  if (!HaveIcons(state)) return;
  for (auto _ : state) {
    for (const std::string& icon : Icons()) {
      qx::TqxVectorDocument document;
      ReadQx(icon, document);
      const auto bitmap = qx::RenderVectorDocument(document, kSide, kSide);
      benchmark::DoNotOptimize(bitmap->Pixels());
    }
  }
  state.SetItemsProcessed(state.iterations() * std::int64_t(Icons().size()));
}

void BM_RsvgParseRender(benchmark::State& state) {
  if (!HaveIcons(state)) return;
  const RsvgRectangle viewport{0, 0, kSide, kSide};
  for (auto _ : state) {
    for (const std::string& icon : Icons()) {
      RsvgHandle* handle = ParseRsvg(icon);
      cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSide, kSide);
      cairo_t* cr = cairo_create(surface);
      if (handle) rsvg_handle_render_document(handle, cr, &viewport, nullptr);
      cairo_surface_flush(surface);
      benchmark::DoNotOptimize(cairo_image_surface_get_data(surface));
      cairo_destroy(cr);
      cairo_surface_destroy(surface);
      if (handle) g_object_unref(handle);
    }
  }
  state.SetItemsProcessed(state.iterations() * std::int64_t(Icons().size()));
}

void BM_PugixmlParse(benchmark::State& state) {
  if (!HaveIcons(state)) return;
  for (auto _ : state) {
    for (const std::string& icon : Icons()) {
      pugi::xml_document document;
      benchmark::DoNotOptimize(document.load_buffer(icon.data(), icon.size()));
    }
  }
  state.SetItemsProcessed(state.iterations() * std::int64_t(Icons().size()));
}

BENCHMARK(BM_RsvgParse)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QxRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RsvgParseRender)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QxReadRender)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PugixmlParse)->Unit(benchmark::kMillisecond);

// The console output, plus the files per second of each benchmark for the
// ratios printed at the end.
class TRateReporter : public benchmark::ConsoleReporter {
public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      const auto rate = run.counters.find("items_per_second");
      if (!run.error_occurred && rate != run.counters.end()) FRates[run.benchmark_name()] = rate->second;
    }
  }

  void PrintRatio(const char* what, const std::string& ours, const std::string& theirs, double target) const {
    const auto a = FRates.find(ours), b = FRates.find(theirs);
    if (a == FRates.end() || b == FRates.end() || b->second <= 0) return;
    std::printf("%-28s %8.0f files/s vs librsvg %8.0f files/s: %.2fx (target %.1fx)\n", what, double(a->second),
                double(b->second), a->second / b->second, target);
  }

private:
  std::map<std::string, double> FRates;
};

}  // namespace

namespace {

// Takes --svg_mismatch_dir=DIR out of the arguments.
std::string TakeMismatchDir(int& argc, char** argv) {
  const std::string flag = "--svg_mismatch_dir=";
  std::string dir;
  int kept = 1;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg.starts_with(flag))
      dir = arg.substr(flag.size());
    else
      argv[kept++] = argv[i];
  }
  argc = kept;
  return dir;
}

void PrintMatchShare(const std::string& mismatchDir) {
  std::vector<std::string> names;
  for (const fs::path& path : IconPaths()) names.push_back(fs::relative(path, IconRoot()).string());
  const auto report = qx::bench::MatchWithLibrsvg(names, Icons(), kSide, mismatchDir);
  using TRule = qx::bench::TsvgMatchRule;
  std::printf("match with librsvg: %d of %d icons read with Success (of %d) match, %.2f%% (target 99%%)\n"
              "  a pixel differs above %d/255 in a premultiplied channel; an icon matches with at most %d such pixels\n",
              report.Matching, report.Compared, report.Files, 100 * report.Share(), TRule::kChannelTolerance,
              TRule::kDifferingPixels);
  for (std::size_t i = 0; i < report.Mismatches.size() && i < 10; ++i)
    std::printf("  %-60s %4d pixels differ, up to %d\n", report.Mismatches[i].Name.c_str(),
                report.Mismatches[i].DifferingPixels, report.Mismatches[i].MaxChannelDifference);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string mismatchDir = TakeMismatchDir(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  std::printf("%zu icons (*_24px.svg), drawn at %dx%d\n", Icons().size(), kSide, kSide);
  if (!Icons().empty()) PrintMatchShare(mismatchDir);
  TRateReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintRatio("read", "BM_QxRead", "BM_RsvgParse", 4.0);
  reporter.PrintRatio("read + render 48x48", "BM_QxReadRender", "BM_RsvgParseRender", 2.5);
  benchmark::Shutdown();
  return 0;
}
