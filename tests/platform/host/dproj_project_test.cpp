#include "platform/host/filesystem/dproj_project.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "../../support/dproj_fixture.h"
#include "platform/core/base/exception.h"
#include "platform/host/filesystem/atomic_file.h"

namespace qx {
namespace {

using test::DprojFixture;

class DprojProjectTest : public DprojFixture {};

TEST_F(DprojProjectTest, ReadsGuidFrameworkTypeAndUnits) {
  auto project = TqxDprojProject::Open(Copy("shop_crlf_bom.dproj"));
  EXPECT_EQ(project->GetProjectGUID().ToString(), "{6F1C2A3B-9D4E-4F70-8A1B-2C3D4E5F6071}");
  EXPECT_EQ(project->GetFrameworkType(), "xfm");
  EXPECT_EQ(project->GetFileName(), (FDir / "shop_crlf_bom.dproj").string());

  auto units = project->ModuleFileNames();
  ASSERT_EQ(units.size(), 2u);
  EXPECT_EQ(units[0], (FDir / "Forms" / "Main.pas").string());
  EXPECT_EQ(units[1], (FDir / "Services" / "Cart.pas").string());

  // Look-up by full name, ignoring case as the IDE does, and tolerant of "..".
  auto info = project->FindModuleInfo((FDir / "services" / ".." / "Services" / "CART.pas").string());
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->GetFileName(), units[1]);
  EXPECT_EQ(project->FindModuleInfo((FDir / "Shop.dpr").string()), nullptr);
  EXPECT_EQ(project->FindModuleInfo((FDir / "Assets.Consts.pas").string()), nullptr);
  // A unit's name is unique in a project: asked for elsewhere, it is found where it is.
  info = project->FindModuleInfo((FDir / "cart.pas").string());
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->GetFileName(), units[1]);
  // Other files are found only where they are.
  project->AddFile((FDir / "Docs" / "readme.txt").string(), false);
  EXPECT_EQ(project->FindModuleInfo((FDir / "readme.txt").string()), nullptr);
  EXPECT_NE(project->FindModuleInfo((FDir / "Docs" / "readme.txt").string()), nullptr);

  EXPECT_EQ(TqxDprojProject::Open(Copy("bare_lf.dproj"))->GetFrameworkType(), "FMX");
}

TEST_F(DprojProjectTest, AddingAUnitInsertsOneLineBehindTheLastUnit) {
  const std::string fileName = Copy("shop_crlf_bom.dproj");
  const std::string original = Read(fileName);
  auto project = TqxDprojProject::Open(fileName);
  const std::string unit = (FDir / "Assets.Consts.pas").string();

  project->AddFile(unit, true);
  project->AddFile(unit, true);  // a module already there is left alone
  ASSERT_NE(project->FindModuleInfo(unit), nullptr);
  EXPECT_EQ(Read(fileName), original) << "nothing reaches the disk before Save";
  EXPECT_TRUE(project->IsModified());

  project->Save();
  EXPECT_EQ(Read(fileName),
            InsertedAfter(original, "<DCCReference Include=\"Services\\Cart.pas\"/>",
                          "\r\n        <DCCReference Include=\"Assets.Consts.pas\"/>"));
  EXPECT_TRUE(Read(fileName).starts_with("\xEF\xBB\xBF<Project"));
  EXPECT_FALSE(project->IsModified());

  // A unit in a subfolder is entered relative to the project, with backslashes.
  project->AddFile((FDir / "Gen" / "Extra.pas").string(), true);
  project->Save();
  EXPECT_NE(Read(fileName).find("<DCCReference Include=\"Gen\\Extra.pas\"/>"), std::string::npos);
  EXPECT_EQ(TqxDprojProject::Open(fileName)->ModuleFileNames().size(), 4u);
}

TEST_F(DprojProjectTest, AddingTheFirstUnitGoesBehindDelphiCompileInLf) {
  const std::string fileName = Copy("bare_lf.dproj");
  const std::string original = Read(fileName);
  auto project = TqxDprojProject::Open(fileName);
  project->AddFile((FDir / "Assets.Consts.pas").string(), true);
  project->Save();
  EXPECT_EQ(Read(fileName), InsertedAfter(original, "</DelphiCompile>",
                                           "\n        <DCCReference Include=\"Assets.Consts.pas\"/>"));
  EXPECT_EQ(Read(fileName).find('\r'), std::string::npos);
}

TEST_F(DprojProjectTest, SavingWithoutChangesWritesNothing) {
  const std::string fileName = Copy("shop_crlf_bom.dproj");
  auto before = std::filesystem::last_write_time(fileName);
  auto project = TqxDprojProject::Open(fileName);
  project->MarkModified();
  EXPECT_TRUE(project->IsModified());
  // Let the clock move so that a write would show in the time stamp.
  std::filesystem::last_write_time(fileName, before - std::chrono::hours(1));
  project->Save();
  EXPECT_EQ(std::filesystem::last_write_time(fileName), before - std::chrono::hours(1));
  EXPECT_FALSE(project->IsModified());
}

TEST_F(DprojProjectTest, AFailedWriteLeavesTheOriginalAndNoTemporaryFile) {
  const std::string fileName = Copy("shop_crlf_bom.dproj");
  const std::string original = Read(fileName);
  auto project = TqxDprojProject::Open(fileName);
  project->AddFile((FDir / "Assets.Consts.pas").string(), true);

  TqxAtomicFile::SetBeforeRenameHook([](const std::string&) { throw Exception("disk full"); });
  try {
    project->Save();
    ADD_FAILURE() << "Save should fail";
  } catch (const Exception& e) {
    EXPECT_NE(e.Message().find(fileName), std::string::npos) << e.Message();
    EXPECT_NE(e.Message().find("disk full"), std::string::npos) << e.Message();
  }
  TqxAtomicFile::SetBeforeRenameHook(nullptr);

  EXPECT_EQ(Read(fileName), original);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(FDir), {}), 1);
  EXPECT_TRUE(project->IsModified()) << "the change is still held";
  project->Save();
  EXPECT_NE(Read(fileName).find("Assets.Consts.pas"), std::string::npos);
}

TEST_F(DprojProjectTest, UnreadableFilesGiveClearErrors) {
  auto messageOf = [&](const std::string& fileName) {
    try {
      TqxDprojProject::Open(fileName);
    } catch (const Exception& e) {
      return e.Message();
    }
    return std::string("no exception");
  };
  std::string broken = Copy("broken.dproj");
  std::string message = messageOf(broken);
  EXPECT_NE(message.find(broken), std::string::npos) << message;
  EXPECT_NE(message.find("line 4, column 7"), std::string::npos) << message;

  message = messageOf(Copy("not_a_project.dproj"));
  EXPECT_NE(message.find("not a project file"), std::string::npos) << message;
  EXPECT_NE(message.find("<Package>"), std::string::npos) << message;

  auto write = [&](const std::string& name, const std::string& bytes) {
    std::ofstream((FDir / name).string(), std::ios::binary) << bytes;
    return (FDir / name).string();
  };
  EXPECT_NE(messageOf(write("empty.dproj", "")).find("empty.dproj"), std::string::npos);
  EXPECT_NE(messageOf(write("latin1.dproj", "<Project>\xE9</Project>")).find("not UTF-8"),
            std::string::npos);
  EXPECT_NE(messageOf(write("guid.dproj",
                            "<Project><PropertyGroup><ProjectGuid>{nope}</ProjectGuid>"
                            "</PropertyGroup></Project>"))
                .find("{nope}"),
            std::string::npos);
  EXPECT_NE(messageOf((FDir / "missing.dproj").string()).find("missing.dproj"), std::string::npos);
}

TEST_F(DprojProjectTest, AProjectWithoutGuidKeepsAStableOne) {
  std::ofstream((FDir / "noguid.dproj").string()) << "<Project><PropertyGroup/></Project>\n";
  auto a = TqxDprojProject::Open((FDir / "noguid.dproj").string());
  auto b = TqxDprojProject::Open((FDir / "noguid.dproj").string());
  EXPECT_FALSE(a->GetProjectGUID().IsEmpty());
  EXPECT_EQ(a->GetProjectGUID(), b->GetProjectGUID());
  EXPECT_THROW(a->AddFile((FDir / "X.pas").string(), true), Exception);
}

}  // namespace
}  // namespace qx
