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
  const std::string config = (FDir / "Assets" / "config.json").string();
  TqxAssetsManager saved;
  TqxAssetsManagerHelper::AddColor(saved, "Primary", 0xFF112233, true);
  TqxAssetsFactory::SaveConfigToFile(saved, config, TqxWritingOptions::Default());
  TqxIdeEventsListener listener(FMessages);
  listener.Initialize();
  TqxAssetsManager* seenByDeployment = nullptr;
  bool filled = false;
  FMessages.SubscribeToMessage<TqxProjectOpenedMessage>([&](const void*, const TMessageBase& m) {
    auto project = static_cast<const TqxProjectOpenedMessage&>(m).Value();
    filled = listener.TryGetAssetsManager(project->GetProjectGUID(), seenByDeployment) &&
             seenByDeployment->Contains("Primary");
  });

  TqxFileSystemHost host(FMessages);
  auto shop = host.OpenProject(Copy("shop_crlf_bom.dproj"));
  EXPECT_TRUE(filled);
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), seenByDeployment);

  // A second project, in a folder without assets, gets an empty manager and becomes current.
  host.FOnActiveProjectChanged = [&](const auto& p) { listener.ActiveProjectChanged(p); };
  auto notes = host.OpenProject(Copy("notes_split.dproj", "notes/notes.dproj"));
  EXPECT_FALSE(filled);
  EXPECT_EQ(listener.Count(), 2u);
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), listener.FindAssetsManager(notes->GetProjectGUID()));
  host.SetActiveProject(shop);
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), listener.FindAssetsManager(shop->GetProjectGUID()));
  host.SetActiveProject(nullptr);
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), nullptr);

  // A broken config leaves an empty manager, and the project still opens.
  std::ofstream(config, std::ios::trunc) << "{";
  host.CloseProject(shop);
  FMessages.ProcessPostedMessages();
  shop = host.OpenProject((FDir / "shop_crlf_bom.dproj").string());
  TqxAssetsManager* manager = listener.FindAssetsManager(shop->GetProjectGUID());
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

  host.CloseProject(host.OpenProject((FDir / "notes_split.dproj").string()));
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
