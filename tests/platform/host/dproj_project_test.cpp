#include "platform/host/filesystem/dproj_project.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "../../support/dproj_fixture.h"
#include "../../support/error_message.h"
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

  auto units = project->ModuleFileNames();
  ASSERT_EQ(units.size(), 2u);
  EXPECT_EQ(units[1], (FDir / "Services" / "Cart.pas").string());

  // Look-up by full name, ignoring case as the IDE does, and tolerant of "..".
  auto info = project->FindModuleInfo((FDir / "services" / ".." / "Services" / "CART.pas").string());
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->GetFileName(), units[1]);
  EXPECT_EQ(project->FindModuleInfo((FDir / "Assets.Consts.pas").string()), nullptr);
  // A unit's name is unique in a project: asked for elsewhere, it is found where it is.
  info = project->FindModuleInfo((FDir / "cart.pas").string());
  EXPECT_EQ(info ? info->GetFileName() : "", units[1]);
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
  EXPECT_EQ(Read(fileName), original) << "nothing reaches the disk before Save";

  project->Save();
  EXPECT_EQ(Read(fileName),
            InsertedAfter(original, "<DCCReference Include=\"Services\\Cart.pas\"/>",
                          "\r\n        <DCCReference Include=\"Assets.Consts.pas\"/>"));
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
  const std::string message = test::ErrorOf([&] { project->Save(); });
  TqxAtomicFile::SetBeforeRenameHook(nullptr);
  EXPECT_NE(message.find(fileName), std::string::npos) << message;
  EXPECT_NE(message.find("disk full"), std::string::npos) << message;

  EXPECT_EQ(Read(fileName), original);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(FDir), {}), 1);
  EXPECT_TRUE(project->IsModified()) << "the change is still held";
  project->Save();
  EXPECT_NE(Read(fileName).find("Assets.Consts.pas"), std::string::npos);
}

TEST_F(DprojProjectTest, UnreadableFilesGiveClearErrors) {
  auto messageOf = [](const std::string& fileName) { return test::ErrorOf([&] { TqxDprojProject::Open(fileName); }); };
  std::string broken = Copy("broken.dproj");
  std::string message = messageOf(broken);
  EXPECT_NE(message.find(broken), std::string::npos) << message;
  EXPECT_NE(message.find("line 4, column 7"), std::string::npos) << message;

  message = messageOf(Copy("not_a_project.dproj"));
  EXPECT_NE(message.find("not a project file"), std::string::npos) << message;
  EXPECT_NE(message.find("<Package>"), std::string::npos) << message;

  EXPECT_NE(messageOf(Touch("empty.dproj", "")).find("empty.dproj"), std::string::npos);
  EXPECT_NE(messageOf(Touch("latin1.dproj", "<Project>\xE9</Project>")).find("not UTF-8"), std::string::npos);
  EXPECT_NE(messageOf(Touch("guid.dproj", "<Project><PropertyGroup><ProjectGuid>{nope}</ProjectGuid>"
                                          "</PropertyGroup></Project>"))
                .find("{nope}"),
            std::string::npos);
  EXPECT_NE(messageOf((FDir / "missing.dproj").string()).find("missing.dproj"), std::string::npos);
}

TEST_F(DprojProjectTest, AProjectWithoutGuidKeepsAStableOne) {
  const std::string fileName = Touch("noguid.dproj", "<Project><PropertyGroup/></Project>\n");
  auto a = TqxDprojProject::Open(fileName);
  auto b = TqxDprojProject::Open(fileName);
  EXPECT_FALSE(a->GetProjectGUID().IsEmpty());
  EXPECT_EQ(a->GetProjectGUID(), b->GetProjectGUID());
  EXPECT_THROW(a->AddFile((FDir / "X.pas").string(), true), Exception);
}

}  // namespace
}  // namespace qx
