#include "platform/host/filesystem/dproj_deployment.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "../../support/dproj_fixture.h"
#include "platform/core/base/text.h"
#include "platform/host/filesystem/dproj_project.h"
#include "platform/host/supported_platforms.h"

namespace qx {
namespace {

using test::DprojFixture;

const char* kAssets = "Quorvex_Assets";
const char* kConfig = "Quorvex_AssetsConfig";

// Enters a file the way the assets deployment does, call for call.
void Enter(IProjectDeployment& deployment, const std::string& deploymentClass, const std::string& localName,
           const std::vector<std::string>& platforms, const std::string& remoteDir, const std::string& remoteName,
           std::vector<std::string> configurations = {"Debug", "Release"}) {
  for (const auto& platform : platforms) {
    for (const auto& configuration : configurations) {
      auto file = deployment.CreateFile(configuration, platform, localName);
      file->SetDeploymentClass(deploymentClass);
      file->SetConfiguration(configuration);
      file->SetEnabled(platform, true);
      file->SetOperation(platform, 0);
      file->SetRemoteDir(platform, remoteDir);
      file->SetRemoteName(platform, remoteName);
    }
  }
}

// One line per entry, sorted, so that order of entry doesn't matter.
std::string Describe(const std::vector<TqxDeploymentEntry>& entries) {
  std::vector<std::string> lines;
  for (const auto& e : entries)
    lines.push_back(Format("%s|%s|%s|%s|%d|%s|%s|%d|%d\n", {e.LocalName, e.Configuration, e.DeploymentClass, e.Platform,
                                                           e.Enabled, e.RemoteDir, e.RemoteName, e.Overwrite,
                                                           e.Operation}));
  std::sort(lines.begin(), lines.end());
  std::string text;
  for (const auto& line : lines) text += line;
  return text;
}

// The text this rewriter lays out for a Platform and for a DeployFile, with
// the file's line break.
std::string PlatformXml(const std::string& nl, const std::string& platform, const std::string& dir,
                        const std::string& name) {
  const std::string in = nl + "                        ";
  return nl + "                    <Platform Name=\"" + platform + "\">" + in + "<Enabled>true</Enabled>" + in +
         "<RemoteDir>" + dir + "</RemoteDir>" + in + "<RemoteName>" + name + "</RemoteName>" + in +
         "<Overwrite>true</Overwrite>" + nl + "                    </Platform>";
}
std::string DeployFileXml(const std::string& nl, const std::string& localName, const std::string& configuration,
                          const std::string& platforms) {
  return nl + "                <DeployFile LocalName=\"" + localName + "\" Configuration=\"" + configuration +
         "\" Class=\"" + kConfig + "\">" + platforms + nl + "                </DeployFile>";
}

class DprojDeploymentTest : public DprojFixture {};

TEST_F(DprojDeploymentTest, ReadsEveryEntryAndSplitOrCombinedReadTheSame) {
  auto shop = TqxDprojProject::Open(Copy("shop_crlf_bom.dproj"));
  EXPECT_EQ(Describe(shop->Deployment()->Entries()),
            "Android64\\Debug\\libShop.so|Debug|ProjectOutput|Android64|1||libShop.so|1|0\n"
            "Assets\\Icons\\home\\home@10x.png|Debug|Quorvex_Assets|Android64|1|assets\\Icons\\home|home@10x.png|1|0\n"
            "Assets\\Icons\\home\\home@10x.png|Debug|Quorvex_Assets|Android|1|assets\\Icons\\home|home@10x.png|1|0\n"
            "Assets\\config-android.json|Debug|Quorvex_AssetsConfig|Android64|1|assets|config.json|1|0\n"
            "Docs\\licence.txt|Release|File|Android64|1|.\\assets\\internal|licence.txt|1|0\n"
            "Docs\\licence.txt|Release|File|Win64|0|.\\|licence.txt|1|0\n");

  auto split = TqxDprojProject::Open(Copy("notes_split.dproj"));
  auto combined = TqxDprojProject::Open(Copy("notes_combined.dproj"));
  EXPECT_EQ(split->Deployment()->Entries().size(), 2u);
  EXPECT_EQ(Describe(split->Deployment()->Entries()), Describe(combined->Deployment()->Entries()));
}

TEST_F(DprojDeploymentTest, EnteringTheSameEntriesAgainChangesNoByte) {
  const std::string fileName = Copy("shop_crlf_bom.dproj");
  const std::string original = Read(fileName);
  auto project = TqxDprojProject::Open(fileName);
  auto deployment = project->GetProjectDeployment();

  deployment->RemoveFilesOfClass(kAssets);
  deployment->RemoveFilesOfClass(kConfig);
  Enter(*deployment, kConfig, "Assets\\config-android.json", {"Android64"}, "assets", "config.json", {"Debug"});
  Enter(*deployment, kAssets, "Assets\\Icons\\home\\home@10x.png", {"Android", "Android64"}, "assets\\Icons\\home",
        "home@10x.png", {"Debug"});
  EXPECT_EQ(project->PendingText(), original);
  project->Save();
  EXPECT_EQ(Read(fileName), original);
}

TEST_F(DprojDeploymentTest, NewEntriesGoBehindTheLastDeployFileInTheFilesStyle) {
  const std::string fileName = Copy("shop_crlf_bom.dproj");
  const std::string original = Read(fileName);
  auto project = TqxDprojProject::Open(fileName);
  Enter(*project->GetProjectDeployment(), kConfig, "Assets\\config-ios.json",
        QuorvexSupportediOSPlatforms, "assets", "config.json");
  project->Save();

  auto element = [](const char* configuration) {
    return DeployFileXml("\r\n", "Assets\\config-ios.json", configuration,
                         PlatformXml("\r\n", "iOSDevice64", "assets", "config.json") +
                             PlatformXml("\r\n", "iOSSimARM64", "assets", "config.json"));
  };
  const std::string anchor = "                </DeployFile>\r\n                <DeployClass";
  EXPECT_EQ(Read(fileName), ReplacedOnce(original, anchor,
                                         "                </DeployFile>" + element("Debug") + element("Release") +
                                             "\r\n                <DeployClass"));

  auto reread = TqxDprojProject::Open(fileName);
  EXPECT_EQ(Describe(reread->Deployment()->Entries()), Describe(project->Deployment()->Entries()));
}

TEST_F(DprojDeploymentTest, RemovingEntriesTakesTheirPlatformOrTheirWholeElement) {
  const std::string fileName = Copy("shop_crlf_bom.dproj");
  const std::string original = Read(fileName);
  auto project = TqxDprojProject::Open(fileName);
  auto deployment = project->GetProjectDeployment();

  deployment->RemoveFile("Debug", "Android", "Assets\\Icons\\home\\home@10x.png");
  deployment->RemoveFilesOfClass(kConfig);
  deployment->RemoveFile("Release", "Android", "Docs\\licence.txt");  // no such entry
  project->Save();

  std::string expected =
      ReplacedOnce(original, PlatformXml("\r\n", "Android", "assets\\Icons\\home", "home@10x.png"), "");
  expected = ReplacedOnce(expected,
                          DeployFileXml("\r\n", "Assets\\config-android.json", "Debug",
                                        PlatformXml("\r\n", "Android64", "assets", "config.json")),
                          "");
  EXPECT_EQ(Read(fileName), expected);

  // Other classes, unknown platforms, DeployClass and ProjectRoot stay, even
  // when everything of ours goes.
  deployment->RemoveFilesOfClass(kAssets);
  project->Save();
  const std::string text = Read(fileName);
  EXPECT_EQ(text.find("Quorvex_"), std::string::npos);
  for (const char* kept : {"Class=\"ProjectOutput\"", "<Platform Name=\"Win64\">",
                           "<DeployClass Name=\"AndroidClasses\">", "<ProjectRoot Platform=\"iOSDevice64\""})
    EXPECT_NE(text.find(kept), std::string::npos) << kept;
  EXPECT_EQ(TqxDprojProject::Open(fileName)->Deployment()->Entries().size(), 3u);
}

TEST_F(DprojDeploymentTest, AChangedValueRewritesOnlyItsPlatform) {
  const std::string fileName = Copy("notes_combined.dproj");
  const std::string original = Read(fileName);
  auto project = TqxDprojProject::Open(fileName);
  Enter(*project->GetProjectDeployment(), kAssets, "Assets\\Fonts\\Roboto\\Roboto.ttf",
        {"iOSSimARM64"}, "assets\\fonts\\Fonts\\Roboto", "Roboto-Regular.ttf", {"Release"});
  project->Save();
  const std::string text = Read(fileName);
  auto diff = Diff(original, text);
  EXPECT_EQ(diff.Removed, "");
  EXPECT_EQ(diff.Inserted, "-Regular");
  EXPECT_LT(text.find("Roboto.ttf</RemoteName>"), text.find("Roboto-Regular.ttf</RemoteName>"));
}

TEST_F(DprojDeploymentTest, SplitAndCombinedFilesLoseOnePlatformEachInTheirOwnWay) {
  for (const char* name : {"notes_split.dproj", "notes_combined.dproj"}) {
    const std::string fileName = Copy(name);
    const std::string original = Read(fileName);
    auto project = TqxDprojProject::Open(fileName);
    project->GetProjectDeployment()->RemoveFile("Release", "iOSSimARM64", "Assets\\Fonts\\Roboto\\Roboto.ttf");
    project->Save();
    const std::string text = Read(fileName);
    EXPECT_EQ(Diff(original, text).Inserted, "") << name;
    // Split: the element of that platform goes; combined: only its Platform.
    EXPECT_EQ(text.find("<DeployFile "), text.rfind("<DeployFile ")) << name;
    auto reread = TqxDprojProject::Open(fileName)->Deployment()->Entries();
    ASSERT_EQ(reread.size(), 1u) << name;
    EXPECT_EQ(reread[0].Platform, "iOSDevice64");
  }
}

TEST_F(DprojDeploymentTest, TheDeploymentSectionIsMadeWhereThereIsNone) {
  const std::string fileName = Copy("bare_lf.dproj");
  const std::string original = Read(fileName);
  auto project = TqxDprojProject::Open(fileName);
  Enter(*project->GetProjectDeployment(), kConfig, "Assets\\config-android.json", {"Android"}, "assets",
        "config.json", {"Debug"});
  project->Save();
  EXPECT_EQ(Read(fileName),
            InsertedAfter(original, "            </Delphi.Personality>",
                          "\n            <Deployment>" +
                              DeployFileXml("\n", "Assets\\config-android.json", "Debug",
                                            PlatformXml("\n", "Android", "assets", "config.json")) +
                              "\n            </Deployment>"));

  // With no extensions at all, the whole path is made and reads back.
  auto tiny = TqxDprojProject::Open(Touch("tiny.dproj", "<Project>\n  <PropertyGroup/>\n</Project>\n"));
  Enter(*tiny->GetProjectDeployment(), kAssets, "Assets\\a&b.png", QuorvexSupportedPlatforms, "assets", "a&b.png");
  tiny->Save();
  auto reread = TqxDprojProject::Open((FDir / "tiny.dproj").string());
  EXPECT_EQ(reread->Deployment()->Entries().size(), 8u);
  EXPECT_NE(Read((FDir / "tiny.dproj").string()).find("\n  <ProjectExtensions>\n    <BorlandProject>"),
            std::string::npos);
}

TEST_F(DprojDeploymentTest, OddButValidLayoutsReadAndRewriteCleanly) {
  const std::string fileName = Copy("odd_layout.dproj");
  const std::string original = Read(fileName);
  auto project = TqxDprojProject::Open(fileName);
  EXPECT_EQ(Describe(project->Deployment()->Entries()),
            "Assets\\R&D\\notes.txt|Debug|Quorvex_Assets|Android64|1|||0|0\n"
            "Assets\\R&D\\notes.txt|Debug|Quorvex_Assets|Android|1|assets\\R&D|notes.txt|1|0\n"
            "Linux64\\Debug\\tool||ProjectOutput|Linux64|1||tool|0|0\n");

  auto deployment = project->GetProjectDeployment();
  // Rewrite the one-line Platform (its unknown child must survive), drop the
  // self-closing one, and add an entry.
  auto file = deployment->CreateFile("Debug", "Android", "Assets\\R&D\\notes.txt");
  file->SetDeploymentClass(kAssets);
  file->SetRemoteDir("Android", "assets\\R&D");
  file->SetRemoteName("Android", "notes-2.txt");
  deployment->RemoveFile("Debug", "Android64", "Assets\\R&D\\notes.txt");
  Enter(*deployment, kConfig, "Assets\\config-android.json", {"Android"}, "assets", "config.json", {"Release"});
  project->Save();

  const std::string text = Read(fileName);
  auto reread = TqxDprojProject::Open(fileName);
  EXPECT_EQ(Describe(reread->Deployment()->Entries()), Describe(project->Deployment()->Entries()));
  for (const char* kept : {"<!-- R&D builds only -->", "<Extra>kept</Extra>",
                           "<DeployFile LocalName=\"Empty.txt\" Configuration=\"Debug\" Class=\"File\"/>",
                           "<DeployFile LocalName=\"Linux64\\Debug\\tool\" Class=\"ProjectOutput\"><Platform"})
    EXPECT_NE(text.find(kept), std::string::npos) << kept;
  EXPECT_EQ(text.find("<Platform Name=\"Android64\"/>"), std::string::npos);
  // New elements are indented with the file's tabs, behind the last DeployFile.
  EXPECT_NE(text.find("</DeployFile>\n\t\t\t\t<DeployFile LocalName=\"Assets\\config-android.json\" "
                      "Configuration=\"Release\" Class=\"Quorvex_AssetsConfig\">\n\t\t\t\t\t<Platform "
                      "Name=\"Android\">\n\t\t\t\t\t\t<Enabled>true</Enabled>"),
            std::string::npos)
      << text;
  EXPECT_TRUE(text.starts_with(original.substr(0, original.find("<Deployment"))));
}

}  // namespace
}  // namespace qx
