#include "platform/host/filesystem/file_system_host.h"

#include <gtest/gtest.h>

#include "../../support/dproj_fixture.h"
#include "platform/core/base/exception.h"
#include "platform/host/ide_messages.h"

namespace qx {
namespace {

using test::DprojFixture;

// Records what the project tells it, and what the project answers then.
class TRecordingNotifier : public TNotifierObject {
public:
  explicit TRecordingNotifier(std::vector<std::string>& log, std::string name)
      : FLog(log), FName(std::move(name)) {}
  void Destroyed() override {
    FLog.push_back(FName + " destroyed " + FProject->GetProjectGUID().ToString());
    if (FRemoveSelf) FProject->RemoveNotifier(FId);
  }
  void Modified() override { FLog.push_back(FName + " modified"); }

  std::vector<std::string>& FLog;
  std::string FName;
  IOTAProject* FProject = nullptr;
  int FId = -1;
  bool FRemoveSelf = false;
};

class FileSystemHostTest : public DprojFixture {};

TEST_F(FileSystemHostTest, OpeningSendsTheProjectOnceAndMakesItActive) {
  TMessageManager messages;
  TqxFileSystemHost host(messages);
  std::vector<std::shared_ptr<IOTAProject>> opened;
  messages.SubscribeToMessage<TqxProjectOpenedMessage>([&](const void*, const TMessageBase& m) {
    auto project = static_cast<const TqxProjectOpenedMessage&>(m).Value();
    EXPECT_EQ(host.GetActiveProject(), project) << "active before the message";
    opened.push_back(project);
  });

  auto shop = host.OpenProject(Copy("shop_crlf_bom.dproj"));
  auto notes = host.OpenProject(Copy("notes_split.dproj"));
  EXPECT_EQ(host.OpenProject((FDir / "shop_crlf_bom.dproj").string()), shop);
  ASSERT_EQ(opened.size(), 2u);
  EXPECT_EQ(opened[0], shop);
  EXPECT_EQ(opened[1], notes);

  EXPECT_THROW(host.OpenProject(Copy("broken.dproj")), Exception);
  EXPECT_EQ(host.Projects().size(), 2u);
  EXPECT_EQ(host.GetActiveProject(), shop);
}

TEST_F(FileSystemHostTest, ClosingTellsNotifiersWhileTheProjectStillAnswers) {
  TMessageManager messages;
  TqxFileSystemHost host(messages);
  auto shop = host.OpenProject(Copy("shop_crlf_bom.dproj"));
  auto notes = host.OpenProject(Copy("notes_split.dproj"));

  std::vector<std::string> log;
  auto view = std::make_shared<TRecordingNotifier>(log, "view");
  view->FProject = shop.get();
  view->FRemoveSelf = true;
  view->FId = shop->AddNotifier(view);
  auto listener = std::make_shared<TRecordingNotifier>(log, "listener");
  listener->FProject = shop.get();
  int listenerId = shop->AddNotifier(listener);
  auto gone = std::make_shared<TRecordingNotifier>(log, "gone");
  shop->RemoveNotifier(shop->AddNotifier(gone));

  shop->MarkModified();
  host.CloseProject(shop);
  EXPECT_EQ(log, (std::vector<std::string>{
                     "view modified", "listener modified",
                     "view destroyed {6F1C2A3B-9D4E-4F70-8A1B-2C3D4E5F6071}",
                     "listener destroyed {6F1C2A3B-9D4E-4F70-8A1B-2C3D4E5F6071}"}));
  EXPECT_EQ(host.GetActiveProject(), notes);
  EXPECT_EQ(host.Projects().size(), 1u);
  shop->RemoveNotifier(listenerId);
  shop->RemoveNotifier(listenerId);  // a stale id does nothing

  host.CloseAll();
  EXPECT_EQ(host.GetActiveProject(), nullptr);
}

TEST_F(FileSystemHostTest, TheIdeServicesAnswerTheHostsActiveProject) {
  auto host = std::make_shared<TqxFileSystemHost>();
  EXPECT_EQ(GetActiveProject(), nullptr);
  TqxIdeServices::Instance().SetModuleServices(host);
  auto project = host->OpenProject(Copy("bare_lf.dproj"));
  EXPECT_EQ(GetActiveProject(), project);
  std::shared_ptr<IProjectDeployment> deployment;
  EXPECT_TRUE(Supports(GetActiveProject(), deployment));
  TqxIdeServices::Instance().Clear();
  EXPECT_EQ(GetActiveProject(), nullptr);
}

TEST(GuidTest, ParsesAndWritesTheProjectFileForm) {
  TGUID guid;
  ASSERT_TRUE(TGUID::TryParse("{6f1c2a3b-9d4e-4f70-8a1b-2c3d4e5f6071}", guid));
  EXPECT_EQ(guid.ToString(), "{6F1C2A3B-9D4E-4F70-8A1B-2C3D4E5F6071}");
  EXPECT_EQ(TGUID::Parse("6F1C2A3B-9D4E-4F70-8A1B-2C3D4E5F6071"), guid);
  for (const char* bad : {"", "{6F1C2A3B-9D4E-4F70-8A1B-2C3D4E5F607}", "{6F1C2A3B-9D4E-4F70-8A1B_2C3D4E5F6071}"})
    EXPECT_FALSE(TGUID::TryParse(bad, guid)) << bad;
  EXPECT_NE(TGUID::NewGuid(), TGUID::NewGuid());
}

}  // namespace
}  // namespace qx
