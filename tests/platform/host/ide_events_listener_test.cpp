#include "platform/host/ide_events_listener.h"

#include <gtest/gtest.h>


#include "../../support/dproj_fixture.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/assets_manager_helper.h"
#include "platform/host/filesystem/file_system_host.h"
#include "platform/host/ide_messages.h"

namespace qx {
namespace {

using test::DprojFixture;

// A designer view that, as the project goes, still saves into the project's
// IDE-wide manager and then says it has finished with it.
class TClosingDesigner : public TNotifierObject {
public:
  TClosingDesigner(TqxIdeEventsListener& listener, TMessageManager& messages, IOTAProject& project)
      : FListener(listener), FMessages(messages), FProject(project) {}
  void Destroyed() override {
    const TGUID guid = FProject.GetProjectGUID();
    FSawManager = FListener.FindAssetsManager(guid) != nullptr;
    FMessages.SendMessage(this, TqxCanRemoveAssetsManager(guid));
    FGoneAfterMessage = FListener.FindAssetsManager(guid) == nullptr;
  }
  TqxIdeEventsListener& FListener;
  TMessageManager& FMessages;
  IOTAProject& FProject;
  bool FSawManager = false;
  bool FGoneAfterMessage = false;
};

class IdeEventsListenerTest : public DprojFixture {
protected:
  void TearDown() override {
    TqxAssetsManager::SetCurrent(nullptr);
    DprojFixture::TearDown();
  }
  TMessageManager FMessages;
};

TEST_F(IdeEventsListenerTest, AnOpenedProjectGetsAFilledManagerBeforeOthersHearOfIt) {
  std::filesystem::create_directories(FDir / "Assets");
  std::ofstream((FDir / "Assets" / "config.json").string()) << "{}";
  TqxIdeEventsListener listener(FMessages);
  std::vector<std::string> loaded;
  listener.FLoadConfig = [&](TqxAssetsManager&, const std::string& fileName) {
    loaded.push_back(fileName);
  };
  listener.Initialize();
  TqxAssetsManager* seenByDeployment = nullptr;
  FMessages.SubscribeToMessage<TqxProjectOpenedMessage>([&](const void*, const TMessageBase& m) {
    auto project = static_cast<const TqxProjectOpenedMessage&>(m).Value();
    listener.TryGetAssetsManager(project->GetProjectGUID(), seenByDeployment);
  });

  TqxFileSystemHost host(FMessages);
  auto shop = host.OpenProject(Copy("shop_crlf_bom.dproj"));
  ASSERT_NE(seenByDeployment, nullptr);
  EXPECT_EQ(seenByDeployment, listener.FindAssetsManager(shop->GetProjectGUID()));
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), seenByDeployment);
  EXPECT_EQ(loaded, std::vector<std::string>{(FDir / "Assets" / "config.json").string()});

  // A second project, in a folder without assets, loads nothing and becomes current.
  std::filesystem::create_directories(FDir / "notes");
  std::filesystem::copy_file(std::string(QX_TEST_DATA_DIR) + "/dproj/notes_split.dproj",
                             FDir / "notes" / "notes.dproj");
  host.FOnActiveProjectChanged = [&](const auto& p) { listener.ActiveProjectChanged(p); };
  auto notes = host.OpenProject((FDir / "notes" / "notes.dproj").string());
  EXPECT_EQ(loaded.size(), 1u);
  EXPECT_EQ(listener.Count(), 2u);
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), listener.FindAssetsManager(notes->GetProjectGUID()));
  host.SetActiveProject(shop);
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), listener.FindAssetsManager(shop->GetProjectGUID()));
  host.SetActiveProject(nullptr);
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), nullptr);
}

TEST_F(IdeEventsListenerTest, TheManagerReadsTheProjectsConfigAndSurvivesABrokenOne) {
  std::filesystem::create_directories(FDir / "Assets");
  const std::string config = (FDir / "Assets" / "config.json").string();
  TqxAssetsManager saved;
  TqxAssetsManagerHelper::AddColor(saved, "Primary", 0xFF112233, true);
  TqxAssetsFactory::SaveConfigToFile(saved, config, TqxWritingOptions::Default());

  TqxIdeEventsListener listener(FMessages);
  listener.Initialize();
  TqxFileSystemHost host(FMessages);
  auto project = host.OpenProject(Copy("bare_lf.dproj"));
  TqxAssetsManager* manager = listener.FindAssetsManager(project->GetProjectGUID());
  ASSERT_NE(manager, nullptr);
  EXPECT_TRUE(manager->Contains("Primary"));

  std::ofstream(config, std::ios::trunc) << "{";
  host.CloseProject(project);
  FMessages.ProcessPostedMessages();
  project = host.OpenProject((FDir / "bare_lf.dproj").string());
  manager = listener.FindAssetsManager(project->GetProjectGUID());
  ASSERT_NE(manager, nullptr);
  EXPECT_TRUE(manager->IsEmpty());
}

TEST_F(IdeEventsListenerTest, TheManagerOutlivesTheClosingUntilTheDesignerIsDone) {
  TqxIdeEventsListener listener(FMessages);
  listener.Initialize();
  TqxFileSystemHost host(FMessages);

  auto shop = host.OpenProject(Copy("shop_crlf_bom.dproj"));
  auto designer = std::make_shared<TClosingDesigner>(listener, FMessages, *shop);
  shop->AddNotifier(designer);
  host.CloseProject(shop);
  EXPECT_TRUE(designer->FSawManager);
  EXPECT_TRUE(designer->FGoneAfterMessage);
  FMessages.ProcessPostedMessages();  // the listener's own request finds nothing left
  EXPECT_EQ(listener.Count(), 0u);

  // Without a designer the manager goes once the closing is over; a project
  // opened again meanwhile keeps its new manager.
  auto notes = host.OpenProject(Copy("notes_split.dproj"));
  const TGUID guid = notes->GetProjectGUID();
  host.CloseProject(notes);
  EXPECT_NE(listener.FindAssetsManager(guid), nullptr);
  FMessages.ProcessPostedMessages();
  EXPECT_EQ(listener.FindAssetsManager(guid), nullptr);

  auto again = host.OpenProject((FDir / "notes_split.dproj").string());
  host.CloseProject(again);
  host.OpenProject((FDir / "notes_split.dproj").string());
  FMessages.ProcessPostedMessages();
  EXPECT_NE(listener.FindAssetsManager(guid), nullptr);

  listener.Finalize();
  EXPECT_EQ(listener.Count(), 0u);
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), nullptr);
  host.OpenProject(Copy("bare_lf.dproj"));
  EXPECT_EQ(listener.Count(), 0u) << "no longer subscribed";
}

}  // namespace
}  // namespace qx
