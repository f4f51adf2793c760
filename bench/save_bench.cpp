// The second save of a 10,000-asset project, where nothing is to be copied,
// against a plain recursive copy of the same assets folder: the assets folder
// alone, and the whole save with the deployment entries and the constants
// unit, and that save followed by the reload the save command does. The last
// lines name the baseline and give the ratios to it (the best run of each);
// the aim is 1.5 or less. QX_SAVE_BENCH_ASSETS sets another
// number of assets, for a quicker profile.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include <unistd.h>

#include "designer/frame_asset_manager.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/base/log.h"
#include "platform/host/filesystem/dproj_project.h"
#include "platform/host/ide_events_listener.h"

namespace {

namespace fs = std::filesystem;
using namespace qx;

const char* kProjectText =
    "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">\n"
    "    <PropertyGroup>\n"
    "        <ProjectGuid>{0B3C9A4E-1F2D-4E5A-8B6C-7D8E9F0A1B2C}</ProjectGuid>\n"
    "        <FrameworkType>xfm</FrameworkType>\n"
    "    </PropertyGroup>\n"
    "    <ProjectExtensions>\n"
    "        <BorlandProject>\n"
    "            <Deployment Version=\"4\"/>\n"
    "        </BorlandProject>\n"
    "    </ProjectExtensions>\n"
    "</Project>\n";

void Write(const fs::path& file, const std::string& bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

std::string ReadData(const std::string& name) {
  std::ifstream in(fs::path(QX_BENCH_DATA_DIR) / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

int AssetCount() {
  const char* text = std::getenv("QX_SAVE_BENCH_ASSETS");
  const int count = text != nullptr ? std::atoi(text) : 0;
  return count > 0 ? count : 10000;
}

// A project with 10,000 assets of the kinds that have files, saved once.
class TBigProject {
public:
  TBigProject() : FRoot(fs::temp_directory_path() / ("qx-save-bench-" + std::to_string(::getpid()))) {
    fs::remove_all(FRoot);
    const fs::path sources = FRoot / "sources";
    Write(sources / "image.png", ReadData("images/rgba_4x3.png"));
    Write(sources / "data.json", std::string(2048, 'x'));
    Write(sources / "font.ttf", std::string(16384, 'f'));
    Write(FRoot / "Big.dproj", kProjectText);

    RegisterAssetEditors();
    TqxLog::SetStderrEnabled(false);
    FProject = TqxDprojProject::Open((FRoot / "Big.dproj").string());
    TqxIdeEventsListener::Instance().ProjectOpened(FProject);
    FDesigner = std::make_unique<TFrameAssetManager>();
    FDesigner->SetProject(FProject);
    TqxAssetsModel& model = FDesigner->Model();
    for (int i = 0, count = AssetCount(); i < count; ++i) {
      const std::string name = "Group" + std::to_string(i / 100) + "\\Asset" + std::to_string(i);
      switch (i % 5) {
        case 0: model.AddColor(name, 0xFF000000u + i); break;
        case 1:
        case 2: {
          TqxAssetBitmapSet* set = model.AddEmptyBitmapSet(name);
          set->GetBitmapInfo(1.0f)->SetUri((sources / "image.png").string());
          set->GetBitmapInfo(2.0f)->SetUri((sources / "image.png").string());
          break;
        }
        case 3: model.AddEmptyFile(name)->SetUri((sources / "data.json").string()); break;
        case 4: model.AddEmptyFont(name)->SetUri((sources / "font.ttf").string()); break;
      }
    }
    // The first save copies everything in; the deployment follows in the timed one.
    WriteFolder();
  }
  ~TBigProject() {
    FDesigner.reset();
    TqxIdeEventsListener::Instance().Finalize();
    fs::remove_all(FRoot);
  }

  void Save() { FDesigner->Save(false); }
  // What the save command runs: the save, then a load that rebuilds the tree.
  void SaveAndReload() {
    FDesigner->Save(false);
    FDesigner->Load();
  }
  // The assets folder alone: files, config files, clean-up and the reload.
  void WriteFolder() {
    const std::string config = FDesigner->GetConfigFileName();
    FDesigner->Model().SaveToFile(config);
    FDesigner->Model().LoadFromFile(config);
  }
  // The baseline: std::filesystem::copy of the assets folder, recursive, each
  // time into a new folder. Emptying one folder for the next copy would time
  // the file system's handling of just-deleted files as well.
  void CopyFolder() {
    fs::copy(FRoot / "Assets", FRoot / ("copy-" + std::to_string(++FCopies)), fs::copy_options::recursive);
  }

private:
  fs::path FRoot;
  int FCopies = 0;
  std::shared_ptr<TqxDprojProject> FProject;
  std::unique_ptr<TFrameAssetManager> FDesigner;
};

TBigProject& Project() {
  static TBigProject project;
  return project;
}

double gSaveSeconds = 0;
double gSaveAndReloadSeconds = 0;
double gFolderSeconds = 0;
double gCopySeconds = 0;

// Times the body and keeps the best run.
template <class F>
void Measure(benchmark::State& state, double& seconds, F&& body) {
  Project();  // made and saved once, outside any timing
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    body();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(elapsed.count());
    seconds = seconds == 0 ? elapsed.count() : std::min(seconds, elapsed.count());
  }
}

void BM_SecondSave(benchmark::State& state) { Measure(state, gSaveSeconds, [] { Project().Save(); }); }
void BM_SecondSaveAndReload(benchmark::State& state) {
  Measure(state, gSaveAndReloadSeconds, [] { Project().SaveAndReload(); });
}
void BM_SecondFolderWrite(benchmark::State& state) {
  Measure(state, gFolderSeconds, [] { Project().WriteFolder(); });
}
void BM_RecursiveCopy(benchmark::State& state) {
  Measure(state, gCopySeconds, [] { Project().CopyFolder(); });
}

BENCHMARK(BM_SecondFolderWrite)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_SecondSave)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SecondSaveAndReload)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_RecursiveCopy)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  if (gCopySeconds > 0) {
    std::printf("baseline: recursive copy of the assets folder (std::filesystem::copy), %d assets: %.0f ms\n",
                AssetCount(), gCopySeconds * 1000);
    std::printf("assets folder of the second save / baseline: %.2f\n", gFolderSeconds / gCopySeconds);
    std::printf("whole second save (with deployment and unit) / baseline: %.2f (aim: 1.5 or less)\n",
                gSaveSeconds / gCopySeconds);
    std::printf("save and reload, as the save command runs them / baseline: %.2f\n", gSaveAndReloadSeconds / gCopySeconds);
  }
  return 0;
}
