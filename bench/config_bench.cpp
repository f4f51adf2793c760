// Reading and writing a large assets config through the factory, against
// nlohmann-json's parse and dump of the same file as the baseline. The last
// line printed is the ratio of the two; the aim is 2 or less.
//
//   cmake --preset release && cmake --build --preset release -j2
//   build/release/bench/qx_config_bench

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>

#include <unistd.h>

#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/base/file_io.h"

namespace {

namespace fs = std::filesystem;
using namespace qx;

constexpr int kAssetCount = 10000;

std::string Folder(int i) { return "Group" + std::to_string(i / 250) + "\\Set" + std::to_string(i % 9); }

template <class T>
void AddWithFile(TqxAssetsManager& manager, const TqxAssetName& name, TqxPlatform platform, const char* extension) {
  auto asset = std::make_unique<T>(name, platform);
  asset->SetUri(name + "\\" + asset->GetTargetId() + extension);
  manager.Add(std::move(asset));
}

// 10,000 names of every kind, about one in three with platform or device
// class variants, as a save leaves them: URIs relative to the assets folder.
void Generate(TqxAssetsManager& manager) {
  static const float kScales[] = {1.0f, 1.5f, 2.0f, 3.0f, 4.0f};
  for (int i = 0; i < kAssetCount; ++i) {
    const TqxAssetName name = Folder(i) + "\\Asset" + std::to_string(i);
    const int variants = i % 3 == 0 ? 3 : 1;
    for (int v = 0; v < variants; ++v) {
      const TqxPlatform platform = v;
      switch (i % 8) {
        case 0:
        case 1:
        case 2:
          manager.Add(std::make_unique<TqxAssetColor>(name, platform, i % 6 == 0 ? 4 : 0, 0xFF000000u | (i * 2654435761u >> 8)));
          break;
        case 3: {
          auto set = std::make_unique<TqxAssetBitmapSet>(name, platform);
          for (float scale : kScales) {
            auto info = std::make_unique<TqxBitmapInfo>(scale);
            if (scale != 1.5f) {
              info->SetUri(name + "\\" + set->GetTargetId() + "@" + std::to_string(int(scale * 10)) + "x.png");
            }
            set->Add(std::move(info));
          }
          if (i % 16 == 3) set->SetCapInsets({4, 4, 4, 4});
          manager.Add(std::move(set));
          break;
        }
        case 4:
          AddWithFile<TqxAssetFont>(manager, name, platform, ".ttf");
          break;
        case 5:
          AddWithFile<TqxAssetLottieAnimation>(manager, name, platform, ".json");
          break;
        case 6: {
          auto svg = std::make_unique<TqxAssetSVG>(name, platform);
          svg->SetSVGUri(name + "\\" + svg->GetTargetId() + ".svg");
          svg->SetVectorUri(name + "\\" + svg->GetTargetId() + ".vector");
          svg->SetSize({24.0, 24.0 + i % 5});
          manager.Add(std::move(svg));
          break;
        }
        default:
          if (i % 16 == 7) {
            AddWithFile<TqxAssetFile>(manager, name, platform, ".csv");
          } else if (v == 0) {
            manager.Add(std::make_unique<TqxAssetThemeContainer>(name));
          }
      }
    }
  }
}

struct TCorpus {
  fs::path Dir;
  std::string Config;
  std::string Output;

  TCorpus() {
    Dir = fs::temp_directory_path() / ("qx_config_bench_" + std::to_string(::getpid()));
    fs::create_directories(Dir / "Assets");
    Config = (Dir / "Assets" / "config.json").string();
    Output = (Dir / "Assets" / "config-out.json").string();
    TqxAssetsManager manager;
    Generate(manager);
    TqxAssetsFactory::SaveConfigToFile(manager, Config, TqxWritingOptions::Default());
  }
  ~TCorpus() { fs::remove_all(Dir); }
};

TCorpus* gCorpus = nullptr;

void BM_FactoryLoadAndSave(benchmark::State& state) {
  TqxAssetsManager manager;
  for (auto _ : state) {
    TqxAssetsFactory::LoadFromFile(manager, gCorpus->Config);
    TqxAssetsFactory::SaveConfigToFile(manager, gCorpus->Output, TqxWritingOptions::Default());
  }
  state.counters["variants"] = static_cast<double>(manager.Count());
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(fs::file_size(gCorpus->Config)));
}

// The two halves alone, to see where the time goes.
void BM_FactoryLoad(benchmark::State& state) {
  TqxAssetsManager manager;
  for (auto _ : state) TqxAssetsFactory::LoadFromFile(manager, gCorpus->Config);
}

void BM_FactorySave(benchmark::State& state) {
  TqxAssetsManager manager;
  TqxAssetsFactory::LoadFromFile(manager, gCorpus->Config);
  for (auto _ : state) TqxAssetsFactory::SaveConfigToFile(manager, gCorpus->Output, TqxWritingOptions::Default());
}

// The same file read, parsed, dumped with the same indentation and written
// the same way, without any assets in between.
void BM_JsonParseAndDump(benchmark::State& state) {
  for (auto _ : state) {
    const std::string text = TqxFileIO::ReadAll(gCorpus->Config);
    nlohmann::json document = nlohmann::json::parse(text);
    TqxFileIO::WriteAtomically(gCorpus->Output, document.dump(2));
    benchmark::DoNotOptimize(document);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(fs::file_size(gCorpus->Config)));
}

BENCHMARK(BM_FactoryLoadAndSave)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_JsonParseAndDump)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FactoryLoad)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FactorySave)->Unit(benchmark::kMillisecond);

// Prints as usual and keeps the real time of each benchmark for the ratio.
class TRatioReporter : public benchmark::ConsoleReporter {
public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
        FTimes[run.run_name.function_name] = {run.GetAdjustedRealTime(), run.GetAdjustedCPUTime()};
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }
  // Real and CPU time of each benchmark.
  const std::map<std::string, std::pair<double, double>>& Times() const { return FTimes; }

private:
  std::map<std::string, std::pair<double, double>> FTimes;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  TCorpus corpus;
  gCorpus = &corpus;
  std::printf("config: %s, %ju bytes, %d asset names\n", corpus.Config.c_str(),
              static_cast<std::uintmax_t>(fs::file_size(corpus.Config)), kAssetCount);
  TRatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const auto& times = reporter.Times();
  auto ours = times.find("BM_FactoryLoadAndSave");
  auto baseline = times.find("BM_JsonParseAndDump");
  if (ours != times.end() && baseline != times.end() && baseline->second.first > 0 && baseline->second.second > 0) {
    // CPU time is the steadier of the two on a busy machine.
    std::printf("ratio factory / nlohmann-json: %.2f real time, %.2f CPU time (aim: 2 or less)\n",
                ours->second.first / baseline->second.first, ours->second.second / baseline->second.second);
  }
  benchmark::Shutdown();
  return 0;
}
