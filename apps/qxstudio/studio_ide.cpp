#include "studio_ide.h"

#include <filesystem>

#include "package/registration.h"
#include "platform/core/base/exception.h"
#include "platform/host/ide_events_listener.h"
#include "platform/host/ide_services.h"
#include "platform/ui/dialog_service.h"
#include "platform/ui/main_thread_queue.h"

namespace qx {
namespace {
constexpr const char* kLogTag = "qxstudio";
}

// Puts a package's item into the main menu. The package keeps its own item
// and action; the menu holds an item of the same name bound to that action.
class TqxStudioIde::TMainMenuService : public INTAService {
public:
  explicit TMainMenuService(TqxStudioIde& ide) : FIde(ide) {}

  void AddActionMenu(const std::string& targetName, TAction* action, TMenuItem* menuItem, bool after,
                     bool child) override {
    TMenuItem* target = FIde.MainMenu.Find(targetName);
    if (target == nullptr)
      throw Exception("The main menu has no item named \"" + targetName + "\"");
    auto item = std::make_unique<TMenuItem>();
    item->Name = menuItem != nullptr ? menuItem->Name : std::string();
    item->SetAction(action);
    TMenuItem* parent = child ? target : target->Parent();
    const int index = child ? parent->Count() : parent->IndexOf(target) + (after ? 1 : 0);
    FAdded.push_back(parent->Insert(index, std::move(item)));
    if (FIde.FOnMenuChanged) FIde.FOnMenuChanged();
  }

  // The package's actions go when it unloads; their items go first.
  void RemoveAdded() {
    for (TMenuItem* item : FAdded) item->Parent()->Remove(item);
    FAdded.clear();
    if (FIde.FOnMenuChanged) FIde.FOnMenuChanged();
  }

private:
  TqxStudioIde& FIde;
  std::vector<TMenuItem*> FAdded;
};

// The tabs' images: the window draws a tab's colour, not its picture, so the
// lists are only counted.
class TqxStudioIde::TImagesService : public INTAEditorViewServices {
public:
  int AddImages(TCustomImageList*, const std::string&) override { return FNextBase++; }

private:
  int FNextBase = 0;
};

TqxStudioIde::TqxStudioIde(TqxIdeSettings& settings)
    : FSettings(settings),
      FHost(std::make_shared<TqxFileSystemHost>()),
      FViews(std::make_shared<TqxEditorViewHost>()),
      FMenuService(std::make_shared<TMainMenuService>(*this)),
      FImagesService(std::make_shared<TImagesService>()),
      FRecent(settings) {
  FLogSink = TqxLog::AddSink([this](TqxLogLevel level, const std::string& tag, const std::string& text) {
    FLogLines.push_back({level, tag, text});
    if (FOnLogLine) FOnLogLine(FLogLines.back());
  });
  FHost->FOnActiveProjectChanged = [this](const std::shared_ptr<IOTAProject>&) { ProjectsChanged(); };
  CreateActions();
  CreateMenu();
}

TqxStudioIde::~TqxStudioIde() {
  Shutdown();
  FHost->FOnActiveProjectChanged = nullptr;
  TqxLog::RemoveSink(FLogSink);
}

void TqxStudioIde::CreateActions() {
  ActionOpenProject = ActionList.Add("ActionOpenProject");
  ActionOpenProject->SetCaption("Open Project...");
  ActionOpenProject->OnExecute = [this](TAction*) {
    TOpenDialogOptions options;
    options.Title = "Open Project";
    options.Filter = "Delphi projects (*.dproj)|*.dproj|All files (*.*)|*.*";
    std::vector<std::string> files;
    if (OpenFileDialog(options, files))
      for (const auto& file : files) OpenProject(file);
  };
  ActionCloseProject = ActionList.Add("ActionCloseProject");
  ActionCloseProject->SetCaption("Close Project");
  ActionCloseProject->OnExecute = [this](TAction*) { CloseProject(FHost->GetActiveProject()); };
  ActionCloseProject->OnUpdate = [this](TAction* action) {
    action->SetEnabled(FHost->GetActiveProject() != nullptr);
  };
  ActionExit = ActionList.Add("ActionExit");
  ActionExit->SetCaption("Exit");
  ActionExit->OnExecute = [this](TAction*) {
    if (FOnExit) FOnExit();
  };
}

void TqxStudioIde::CreateMenu() {
  auto file = std::make_unique<TMenuItem>("File");
  file->Name = "FileMenu";
  file->AddAction(ActionOpenProject);
  FRecentMenu = file->Add(std::make_unique<TMenuItem>("Recent Projects"));
  FRecentMenu->Name = "FileRecentItem";
  file->AddAction(ActionCloseProject);
  file->AddLine();
  file->AddAction(ActionExit);
  MainMenu.Add(std::move(file));

  auto project = std::make_unique<TMenuItem>("Project");
  project->Name = "ProjectMenu";
  TMenuItem* resources = project->Add(std::make_unique<TMenuItem>("Resources and Images..."));
  resources->Name = kProjectResourcesItem;
  resources->SetEnabled(false);
  MainMenu.Add(std::move(project));
  FillRecentMenu();
}

void TqxStudioIde::FillRecentMenu() {
  while (FRecentMenu->Count() > 0) FRecentMenu->Remove(FRecentMenu->Items(0));
  for (const std::string& name : FRecent.Items()) {
    TMenuItem* item = FRecentMenu->Add(std::make_unique<TMenuItem>(name));
    // Opening refills this menu, item included: the opening waits for the click to end.
    item->OnClick = [this, name](TMenuItem*) {
      TThread::ForceQueue(nullptr, [this, name] { OpenProject(name); });
    };
  }
  if (FRecent.Items().empty()) FRecentMenu->Add(std::make_unique<TMenuItem>("(none)"))->SetEnabled(false);
  if (FOnMenuChanged) FOnMenuChanged();
}

void TqxStudioIde::Start() {
  if (FStarted) return;
  auto& services = TqxIdeServices::Instance();
  services.SetModuleServices(FHost);
  services.SetEditorViewServices(FViews);
  services.SetNTAService(FMenuService);
  services.SetNTAEditorViewServices(FImagesService);
  TqxIdeEventsListener::Instance().Initialize();
  FStarted = true;
  Register();
}

bool TqxStudioIde::CloseAllViews() { return FViews->CloseAll(); }

void TqxStudioIde::Shutdown() {
  if (!FStarted) return;
  FStarted = false;
  FHost->CloseAll();
  // Tabs that refused to close while their project went still hold frames.
  FViews->FOnViewClosed = nullptr;
  FViews->FOnViewShown = nullptr;
  FViews.reset();
  FViews = std::make_shared<TqxEditorViewHost>();
  UnregisterPackage();
  FMenuService->RemoveAdded();
  TqxIdeEventsListener::Instance().Finalize();
  TqxIdeServices::Instance().Clear();
}

std::shared_ptr<IOTAProject> TqxStudioIde::OpenProject(const std::string& fileName) {
  try {
    auto project = FHost->OpenProject(fileName);
    TqxLog::Trace(kLogTag, "Project opened: fileName=\"%s\"", {project->GetFileName()});
    FRecent.Add(fileName);
    FillRecentMenu();
    ProjectsChanged();
    return project;
  } catch (const Exception& e) {
    TqxLog::Error(kLogTag, "Cannot open project: fileName=\"%s\", error=\"%s\"", {fileName, e.what()});
    MessageDlg(e.what(), TMsgDlgType::mtError, mbOK);
    return nullptr;
  }
}

void TqxStudioIde::CloseProject(const std::shared_ptr<IOTAProject>& project) {
  if (!project) return;
  FHost->CloseProject(project);
  ProjectsChanged();
}

void TqxStudioIde::SetActiveProject(const std::shared_ptr<IOTAProject>& project) {
  FHost->SetActiveProject(project);
}

bool TqxStudioIde::CloseView(const INTACustomEditorView& view) {
  // The host wants the shared view it keeps; a non-owning alias finds it.
  return FViews->CloseEditorView(
      std::shared_ptr<INTACustomEditorView>(std::shared_ptr<void>(), const_cast<INTACustomEditorView*>(&view)));
}

std::vector<TqxProjectEntry> TqxStudioIde::ProjectEntries() const {
  std::vector<TqxProjectEntry> entries;
  const auto active = FHost->GetActiveProject();
  for (const auto& project : FHost->Projects())
    entries.push_back({project, std::filesystem::path(project->GetFileName()).filename().string(),
                       project == active});
  return entries;
}

void TqxStudioIde::ProjectsChanged() {
  if (FOnProjectsChanged) FOnProjectsChanged();
}

}  // namespace qx
