// The headless designer commands on copies of the example project. The saved
// example is compared with golden files under tests/data/demo_saved; after a
// deliberate change rewrite them with QX_UPDATE_GOLDEN=1.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "document_commands.h"
#include "edit_commands.h"
#include "list_command.h"
#include "platform/core/graphics/bitmap.h"
#include "svg_command.h"
#include "../../support/temp_folder.h"

namespace qx::cli {
namespace {

namespace fs = std::filesystem;

const fs::path kDemo = fs::path(QX_SOURCE_DIR) / "examples" / "Demo";
const fs::path kGolden = fs::path(QX_TEST_DATA_DIR) / "demo_saved";

using test::ReadText;

struct TFileState {
  std::string Bytes;
  fs::file_time_type Time;
  bool operator==(const TFileState&) const = default;
};

// Every file under the folder, relative with `/`, with its bytes and time.
std::map<std::string, TFileState> Snapshot(const fs::path& folder) {
  std::map<std::string, TFileState> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    files[entry.path().lexically_relative(folder).generic_string()] = {ReadText(entry.path()), entry.last_write_time()};
  }
  return files;
}

std::string TreeText(const fs::path& folder) {
  std::string text;
  for (const auto& [name, state] : Snapshot(folder)) text += name + "\n";
  return text;
}

class DesignerCommandsTest : public ::testing::Test {
protected:
  DesignerCommandsTest() { fs::copy(kDemo, FFolder / "Demo", fs::copy_options::recursive); }

  // Runs the command with the project first; out and err hold what it wrote.
  int Run(const TqxCommand& command, std::vector<std::string> args) {
    args.insert(args.begin(), Project());
    return RunRaw(command, args);
  }
  int RunRaw(const TqxCommand& command, const std::vector<std::string>& args) {
    std::ostringstream out, err;
    const int code = command.Run(args, out, err);
    FOut = out.str();
    FErr = err.str();
    return code;
  }
  std::string Project() const { return (FFolder / "Demo" / "Demo.dproj").string(); }
  fs::path Assets() const { return FFolder / "Demo" / "Assets"; }

  void ExpectGolden(const std::string& name, const std::string& actual) {
    if (std::getenv("QX_UPDATE_GOLDEN") != nullptr) {
      fs::create_directories(kGolden);
      std::ofstream(kGolden / name, std::ios::binary) << actual;
      return;
    }
    EXPECT_EQ(actual, ReadText(kGolden / name)) << name;
  }

  test::TTempFolder FTemp{"commands"};
  fs::path FFolder = FTemp.Path();
  std::string FOut;
  std::string FErr;
};

TEST_F(DesignerCommandsTest, SavingTheExampleGivesTheGoldenFilesAndASecondSaveChangesNothing) {
  ASSERT_EQ(Run(SaveCommand(), {}), kExitOk) << FErr;
  ExpectGolden("assets_tree.txt", TreeText(Assets()));
  for (const char* name : {"config.json", "config-android.json", "config-ios.json"}) {
    ExpectGolden(name, ReadText(Assets() / name));
  }
  ExpectGolden("Assets.Consts.pas", ReadText(FFolder / "Demo" / "Assets.Consts.pas"));
  ExpectGolden("Demo.dproj", ReadText(Project()));

  const auto first = Snapshot(FFolder / "Demo");
  ASSERT_EQ(Run(SaveCommand(), {}), kExitOk) << FErr;
  const auto second = Snapshot(FFolder / "Demo");
  ASSERT_EQ(first.size(), second.size());
  for (const auto& [name, state] : first) {
    ASSERT_TRUE(second.count(name)) << name;
    EXPECT_EQ(state.Bytes, second.at(name).Bytes) << name;
    // Asset files are neither copied nor rewritten.
    if (name.rfind("Assets/config", 0) != 0 && name.find('/') != std::string::npos) {
      EXPECT_EQ(state.Time, second.at(name).Time) << name;
    }
  }
}

TEST_F(DesignerCommandsTest, EditingCommandsChangeTheModelAndEndWithASave) {
  const fs::path logo = Assets() / "Images" / "Logo" / "default@10x.png";
  fs::copy_file(logo, FFolder / "Badge.PNG");
  std::ofstream(FFolder / "readme.md") << "read me";

  ASSERT_EQ(Run(NewCommand(), {"color", "Colors\\Accent", "#80FF0000"}), kExitOk) << FErr;
  EXPECT_EQ(FOut, "Colors\\Accent-1\n");
  ASSERT_EQ(Run(NewCommand(), {"bitmap-set", "Images\\Hero", logo.string()}), kExitOk) << FErr;
  EXPECT_TRUE(fs::exists(Assets() / "Images" / "Hero" / "default@10x.png"));
  ASSERT_EQ(Run(NewCommand(), {"theme-container", "Sepia"}), kExitOk) << FErr;

  ASSERT_EQ(Run(AddCommand(), {(FFolder / "Badge.PNG").string(), (FFolder / "readme.md").string(),
                               "--folder", "Sepia"}),
            kExitOk)
      << FErr;
  EXPECT_EQ(FOut, "added Sepia\\Badge (bitmap-set)\nadded Sepia\\readme (file)\n");
  EXPECT_TRUE(fs::exists(Assets() / "Sepia" / "Badge" / "default@10x.png"));
  EXPECT_EQ(ReadText(Assets() / "Sepia" / "readme" / "default.md"), "read me");

  // A theme moves with its members; a taken name gets a suffix.
  ASSERT_EQ(Run(MvCommand(), {"Sepia", "Dark"}), kExitOk) << FErr;
  EXPECT_EQ(FOut, "Dark-1\n");
  EXPECT_TRUE(fs::exists(Assets() / "Dark-1" / "Badge" / "default@10x.png"));
  EXPECT_FALSE(fs::exists(Assets() / "Sepia"));
  ASSERT_EQ(Run(MvCommand(), {"Images\\", "Pictures"}), kExitOk) << FErr;
  EXPECT_NE(FOut.find("Images\\Logo -> Pictures\\Logo"), std::string::npos) << FOut;
  EXPECT_TRUE(fs::exists(Assets() / "Pictures" / "Logo" / "default@40x.png"));
  EXPECT_FALSE(fs::exists(Assets() / "Images"));

  ASSERT_EQ(Run(RmCommand(), {"Dark-1"}), kExitOk) << FErr;
  EXPECT_EQ(FOut, "removed 3 asset(s)\n");
  EXPECT_FALSE(fs::exists(Assets() / "Dark-1"));
  ASSERT_EQ(Run(RmCommand(), {"Pictures\\"}), kExitOk) << FErr;
  EXPECT_FALSE(fs::exists(Assets() / "Pictures"));
  EXPECT_EQ(ReadText(Assets() / "config.json").find("Pictures"), std::string::npos);
  EXPECT_NE(ReadText(FFolder / "Demo" / "Assets.Consts.pas").find("ACCENT_1"), std::string::npos);
}

// What a project ships is the .vector file of an SVG asset: drawn, it must
// look like the SVG it came from.
TEST_F(DesignerCommandsTest, AnAddedSvgSavesAVectorFileThatDrawsLikeItsSource) {
  const fs::path svg = FFolder / "Badge.svg";
  fs::copy_file(fs::path(QX_TEST_DATA_DIR) / "svg" / "cli" / "badge.svg", svg);
  ASSERT_EQ(Run(AddCommand(), {svg.string()}), kExitOk) << FErr;
  const fs::path saved = Assets() / "Badge" / "default.vector";
  ASSERT_TRUE(fs::exists(saved)) << FOut;

  std::ostringstream out, err;
  ASSERT_EQ(RunSvgCommand({"render", svg.string(), saved.string(), "-o", FFolder.string(), "--size", "48x48"}, out,
                          err),
            kExitOk)
      << err.str();
  const auto fromSource = TqxBitmap::LoadFromFile((FFolder / "Badge.png").string());
  const auto fromVector = TqxBitmap::LoadFromFile((FFolder / "default.png").string());
  EXPECT_EQ(*fromVector, *fromSource);
  EXPECT_NE(fromSource->GetPixel(20, 20), 0u);
}

TEST_F(DesignerCommandsTest, FailuresAreOneLineAndLeaveTheProjectAsItWas) {
  ASSERT_EQ(Run(SaveCommand(), {}), kExitOk) << FErr;
  const auto saved = Snapshot(FFolder / "Demo");
  const fs::path outside = FFolder / "outside.txt";

  struct TCase {
    TqxCommand Command;
    std::vector<std::string> Args;
  };
  const TCase failures[] = {
      {NewCommand(), {"sound", "Beep"}},
      {NewCommand(), {"color", "Bad", "not-a-colour"}},
      {NewCommand(), {"file", "..\\..\\Escaped", outside.string()}},
      {AddCommand(), {(FFolder / "missing.png").string()}},
      {AddCommand(), {(Assets() / "config.json").string(), "--folder", "a:b"}},
      {RmCommand(), {"No\\Such\\"}},
      {MvCommand(), {"No\\Such", "Other"}},
      {MvCommand(), {"Colors\\Accent", "\\Absolute"}},
  };
  for (const TCase& failure : failures) {
    EXPECT_EQ(Run(failure.Command, failure.Args), kExitFailure) << failure.Command.Name;
    EXPECT_EQ(std::count(FErr.begin(), FErr.end(), '\n'), 1) << FErr;
    EXPECT_EQ(FErr.rfind("qxassets " + failure.Command.Name + ": ", 0), 0u) << FErr;
  }
  EXPECT_TRUE(Snapshot(FFolder / "Demo") == saved);
  EXPECT_FALSE(fs::exists(FFolder / "Escaped"));

  EXPECT_EQ(RunRaw(SaveCommand(), {(FFolder / "none.dproj").string()}), kExitFailure);
  EXPECT_EQ(RunRaw(NewCommand(), {Project(), "color"}), kExitUsage);
  EXPECT_EQ(RunRaw(MvCommand(), {"--help"}), kExitOk);
  EXPECT_EQ(FOut.rfind("usage: qxassets mv PROJECT.dproj OLD NEW\n", 0), 0u) << FOut;
}

TEST_F(DesignerCommandsTest, DeployRewritesOnlyTheEntriesAndConstsPrintsTheUnit) {
  const auto before = Snapshot(Assets());
  ASSERT_EQ(Run(DeployCommand(), {}), kExitOk) << FErr;
  EXPECT_TRUE(Snapshot(Assets()) == before);
  EXPECT_FALSE(fs::exists(FFolder / "Demo" / "Assets.Consts.pas"));
  const std::string dproj = ReadText(Project());
  EXPECT_NE(dproj.find("Class=\"Quorvex_AssetsConfig\""), std::string::npos);
  EXPECT_NE(dproj.find("Class=\"ProjectOutput\""), std::string::npos);
  ASSERT_EQ(Run(DeployCommand(), {}), kExitOk) << FErr;
  EXPECT_EQ(ReadText(Project()), dproj);

  ASSERT_EQ(Run(SaveCommand(), {}), kExitOk) << FErr;
  ASSERT_EQ(Run(ConstsCommand(), {}), kExitOk) << FErr;
  std::string unit = ReadText(FFolder / "Demo" / "Assets.Consts.pas").substr(3);  // without the byte order mark
  std::erase(unit, '\r');
  EXPECT_EQ(FOut, unit);
}

}  // namespace
}  // namespace qx::cli
