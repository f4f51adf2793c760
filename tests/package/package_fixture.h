#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "package/assets_manager_frame.h"
#include "package/assets_manager_view.h"
#include "package/registration.h"
#include "package/wizard_assets_manager.h"
#include "platform/core/base/log.h"
#include "platform/host/editor_view_host.h"
#include "platform/host/filesystem/file_system_host.h"
#include "platform/host/ide_events_listener.h"
#include "platform/host/ide_services.h"
#include "platform/ui/headless_ui.h"
#include "../support/temp_folder.h"

namespace qx::test {

namespace fs = std::filesystem;

// The IDE's main menu as far as the package sees it: where items were put.
class TRecordingNTAService : public INTAService {
public:
  struct TAdded {
    std::string Target;
    TAction* Action;
    TMenuItem* Item;
    bool After, Child;
  };
  void AddActionMenu(const std::string& targetName, TAction* action, TMenuItem* menuItem, bool after,
                     bool child) override {
    Added.push_back({targetName, action, menuItem, after, child});
  }
  std::vector<TAdded> Added;
};

class TRecordingImagesService : public INTAEditorViewServices {
public:
  int AddImages(TCustomImageList* images, const std::string& ident) override {
    Images = images;
    Ident = ident;
    return 7;
  }
  TCustomImageList* Images = nullptr;
  std::string Ident;
};

// The package over the file-system host, with copies of real projects in a
// temporary folder and scripted dialog answers.
class PackageTest : public ::testing::Test {
protected:
  PackageTest() {
    TqxLog::SetStderrEnabled(false);
    Host = std::make_shared<TqxFileSystemHost>();
    Views = std::make_shared<TqxEditorViewHost>();
    Menu = std::make_shared<TRecordingNTAService>();
    Images = std::make_shared<TRecordingImagesService>();
    // As the application does before it loads the package.
    TqxIdeEventsListener::Instance().Initialize();
  }

  ~PackageTest() override {
    // Nothing may ask a question while the test's projects go.
    for (auto& [guid, view] : AssetsManagerViews())
      if (view->Frame() != nullptr) view->Frame()->ClearModified();
    Host->CloseAll();
    UnregisterPackage();
    TqxIdeEventsListener::Instance().Finalize();
    TqxIdeServices::Instance().Clear();
    Views.reset();
    Host.reset();
    TqxLog::SetStderrEnabled(true);
  }

  void InstallServices() {
    auto& services = TqxIdeServices::Instance();
    services.SetModuleServices(Host);
    services.SetEditorViewServices(Views);
    services.SetNTAService(Menu);
    services.SetNTAEditorViewServices(Images);
  }

  // A copy of the example project under its own folder.
  fs::path CopyDemo(const std::string& folder) {
    const fs::path target = FRoot / folder;
    fs::copy(fs::path(QX_SOURCE_DIR) / "examples/Demo", target, fs::copy_options::recursive);
    return target / "Demo.dproj";
  }
  // A copy of a test project, with its framework type replaced when given.
  fs::path CopyProject(const std::string& name, const std::string& frameworkType = "") {
    const fs::path target = FRoot / name;
    fs::create_directories(target.parent_path());
    std::string text = ReadText(fs::path(QX_TEST_DATA_DIR) / "dproj" / fs::path(name).filename());
    if (!frameworkType.empty()) {
      const std::string open = "<FrameworkType>", close = "</FrameworkType>";
      const auto from = text.find(open) + open.size();
      text.replace(from, text.find(close) - from, frameworkType);
    }
    std::ofstream(target, std::ios::binary) << text;
    return target;
  }

  TqxWizardAssetsManager& Wizard() {
    EXPECT_EQ(TqxIdeServices::Instance().Wizards().size(), 1u);
    return dynamic_cast<TqxWizardAssetsManager&>(*TqxIdeServices::Instance().Wizards().front());
  }
  TqxAssetsManagerView* ActiveView() { return dynamic_cast<TqxAssetsManagerView*>(Views->ActiveView()); }
  TqxAssetsManagerView* ViewOf(const std::shared_ptr<IOTAProject>& project) {
    auto it = AssetsManagerViews().find(project->GetProjectGUID());
    return it == AssetsManagerViews().end() ? nullptr : it->second;
  }

  TTempFolder FTemp{"package"};
  fs::path FRoot = FTemp.Path();
  TqxHeadlessUi Ui;
  std::shared_ptr<TqxFileSystemHost> Host;
  std::shared_ptr<TqxEditorViewHost> Views;
  std::shared_ptr<TRecordingNTAService> Menu;
  std::shared_ptr<TRecordingImagesService> Images;
};

}  // namespace qx::test
