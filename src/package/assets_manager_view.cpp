#include "package/assets_manager_view.h"

#include <filesystem>

#include "designer/asset_tree.h"
#include "package/assets_manager_frame.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/host/ide_services.h"

namespace qx {

TqxAssetsManagerViews& AssetsManagerViews() {
  static TqxAssetsManagerViews views;
  return views;
}

void FinalizeAssetsManagerViews() { AssetsManagerViews().clear(); }

TqxAssetsManagerView::TqxAssetsManagerView(const std::shared_ptr<IOTAProject>& AProject,
                                           int ABaseImageEditorIndex)
    : FProjectGUID(AProject->GetProjectGUID()),
      FProject(AProject),
      FBaseImageEditorIndex(ABaseImageEditorIndex),
      FLastFileName(AProject->GetFileName()) {}

std::shared_ptr<TqxAssetsManagerView> TqxAssetsManagerView::Create(
    const std::shared_ptr<IOTAProject>& AProject, int ABaseImageEditorIndex) {
  std::shared_ptr<TqxAssetsManagerView> view(new TqxAssetsManagerView(AProject, ABaseImageEditorIndex));
  view->FProjectNotifierId = AProject->AddNotifier(view);
  return view;
}

TqxAssetsManagerView::~TqxAssetsManagerView() {
  if (FProjectNotifierId == -1) return;
  if (auto project = FProject.lock()) project->RemoveNotifier(FProjectNotifierId);
}

std::string TqxAssetsManagerView::ProjectFileName() const {
  // A going project is still asked for its name; once it has gone the last
  // known one stands.
  if (auto project = FProject.lock()) FLastFileName = project->GetFileName();
  return FLastFileName;
}

std::string TqxAssetsManagerView::GetCaption() {
  return "Assets Manager: " + std::filesystem::path(ProjectFileName()).filename().string();
}

std::string TqxAssetsManagerView::GetViewIdentifier() {
  const std::string withoutExtension =
      std::filesystem::path(ProjectFileName()).replace_extension().string();
  return Format("Quorvex.Project.Designer.Assets.%s", {withoutExtension});
}

TFrameClass TqxAssetsManagerView::GetFrameClass() {
  return [] { return std::unique_ptr<TCustomFrame>(std::make_unique<TqxAssetsManagerFrame>()); };
}

void TqxAssetsManagerView::FrameCreated(TCustomFrame* AFrame) {
  AFrame->Name = "";
  FFrame = dynamic_cast<TFrameAssetManager*>(AFrame);
  if (FFrame == nullptr) throw Exception("The Assets Manager view was given a frame of another class");
  // Loads, so the tree is full before the asset is looked for.
  FFrame->SetProject(FProject.lock());
  FFrame->Tree().SetInitialAssetName(FInitialAssetName);
  FFrame->LoadUISettings();
}

void TqxAssetsManagerView::SetInitialAssetName(const TqxAssetName& AName) {
  FInitialAssetName = AName;
  if (FFrame != nullptr) FFrame->Tree().SetInitialAssetName(AName);
}

void TqxAssetsManagerView::RemoveFromOpenViews() {
  // A view closed by the user may still hear of its project after a new view
  // of the same project took its place: that one stays.
  auto& views = AssetsManagerViews();
  auto it = views.find(FProjectGUID);
  if (it != views.end() && it->second == this) views.erase(it);
}

void TqxAssetsManagerView::Close(bool& Allowed) {
  Allowed = FFrame == nullptr || FFrame->CloseQuery(FIsProjectDestroying, this);
  if (Allowed) RemoveFromOpenViews();
}

void TqxAssetsManagerView::Destroyed() {
  FIsProjectDestroying = true;
  // Keeps the view alive while the project and the tab let go of it.
  auto self = shared_from_this();
  if (auto project = FProject.lock()) project->RemoveNotifier(FProjectNotifierId);
  FProjectNotifierId = -1;
  RemoveFromOpenViews();
  if (auto services = TqxIdeServices::Instance().EditorViewServices()) services->CloseEditorView(self);
}

void OpenAssetsManagerDesigner(const TqxAssetName& AInitialAssetName) {
  auto services = TqxIdeServices::Instance().EditorViewServices();
  if (!services)
    throw Exception("Cannot open Assets Manager designer. Sevice IOTAEditorViewServices is unavailable");
  auto project = GetActiveProject();
  auto& views = AssetsManagerViews();
  std::shared_ptr<TqxAssetsManagerView> view;
  auto it = views.find(project->GetProjectGUID());
  if (it != views.end()) {
    view = it->second->shared_from_this();
  } else {
    view = TqxAssetsManagerView::Create(project, -1);
    views[project->GetProjectGUID()] = view.get();
  }
  view->SetInitialAssetName(AInitialAssetName);
  services->ShowEditorView(view);
}

}  // namespace qx
