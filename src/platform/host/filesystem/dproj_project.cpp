#include "platform/host/filesystem/dproj_project.h"

#include <filesystem>

#include "platform/core/base/exception.h"
#include "platform/core/base/log.h"
#include "platform/core/base/text.h"
#include "platform/host/filesystem/atomic_file.h"

namespace qx {

namespace fs = std::filesystem;

namespace {

const char* kLogTag = "Host";

bool IsModuleItem(pugi::xml_node node) {
  std::string_view name = node.name();
  return node.type() == pugi::node_element && (name == "DCCReference" || name == "None");
}

// The first value of a property in any PropertyGroup, or an empty node.
pugi::xml_node FindProperty(pugi::xml_node root, const char* name) {
  for (pugi::xml_node group : root.children("PropertyGroup"))
    if (pugi::xml_node property = group.child(name)) return property;
  return {};
}

std::string NormalPath(const std::string& fileName) {
  return fs::path(StringReplaceAll(fileName, "\\", "/")).lexically_normal().string();
}

}  // namespace

std::shared_ptr<TqxDprojProject> TqxDprojProject::Open(const std::string& fileName) {
  std::string fullName = fs::absolute(fs::path(fileName)).lexically_normal().string();
  auto project = std::shared_ptr<TqxDprojProject>(
      new TqxDprojProject(TqxDprojDocument::LoadFromFile(fullName)));
  return project;
}

TqxDprojProject::TqxDprojProject(std::unique_ptr<TqxDprojDocument> document)
    : FDocument(std::move(document)),
      FDeployment(std::make_shared<TqxDprojDeployment>()),
      FFileName(FDocument->FileName()),
      FDiskText(FDocument->Text()) {
  ReadProperties();
  FDeployment->Read(*FDocument);
}

void TqxDprojProject::ReadProperties() {
  pugi::xml_node root = FDocument->Root();
  FFrameworkType = Trim(FindProperty(root, "FrameworkType").child_value());
  std::string guidText = Trim(FindProperty(root, "ProjectGuid").child_value());
  if (guidText.empty()) {
    // Keep a key that stays the same for this file across sessions.
    FGuid = TGUID::FromName(FFileName);
    TqxLog::Warning(kLogTag, "Project has no ProjectGuid, using %s: fileName=\"%s\"",
                    {FGuid.ToString(), FFileName});
  } else if (!TGUID::TryParse(guidText, FGuid)) {
    throw Exception(Format("Cannot read the project \"%s\": ProjectGuid \"%s\" is not a GUID",
                           {FFileName, guidText}));
  }
}

std::string TqxDprojProject::FullPathOf(const std::string& include) const {
  fs::path path(StringReplaceAll(include, "\\", "/"));
  if (path.is_relative()) path = fs::path(FFileName).parent_path() / path;
  return path.lexically_normal().string();
}

std::string TqxDprojProject::IncludeFor(const std::string& fileName) const {
  fs::path full(NormalPath(fileName));
  fs::path relative = full.lexically_relative(fs::path(FFileName).parent_path());
  std::string include = relative.empty() ? full.string() : relative.string();
  return StringReplaceAll(include, "/", "\\");
}

std::vector<TqxDprojProject::TModule> TqxDprojProject::Modules() const {
  std::vector<TModule> modules;
  for (pugi::xml_node group : FDocument->Root().children("ItemGroup"))
    for (pugi::xml_node item : group.children())
      if (IsModuleItem(item))
        modules.push_back({FullPathOf(item.attribute("Include").value()),
                           std::string_view(item.name()) == "DCCReference"});
  return modules;
}

std::vector<std::string> TqxDprojProject::ModuleFileNames() const {
  std::vector<std::string> names;
  for (auto& module : Modules()) names.push_back(std::move(module.FileName));
  return names;
}

std::shared_ptr<IOTAModuleInfo> TqxDprojProject::FindModuleInfo(const std::string& fileName) const {
  // Project files come from Windows, where names ignore case. A unit's name is
  // unique in a project, so a unit kept in another folder is the one asked for.
  const std::string wanted = NormalPath(fileName);
  const std::string wantedName = fs::path(wanted).filename().string();
  const std::string* unitOfName = nullptr;
  const auto modules = Modules();
  for (const auto& module : modules) {
    if (SameText(module.FileName, wanted)) return std::make_shared<TqxDprojModuleInfo>(module.FileName);
    if (unitOfName == nullptr && module.IsUnit &&
        SameText(fs::path(module.FileName).filename().string(), wantedName))
      unitOfName = &module.FileName;
  }
  return unitOfName ? std::make_shared<TqxDprojModuleInfo>(*unitOfName) : nullptr;
}

void TqxDprojProject::AddFile(const std::string& fileName, bool isUnit) {
  if (FindModuleInfo(fileName)) return;
  pugi::xml_node anchor, compile;
  for (pugi::xml_node group : FDocument->Root().children("ItemGroup")) {
    for (pugi::xml_node item : group.children()) {
      if (IsModuleItem(item)) anchor = item;
      if (!compile && std::string_view(item.name()) == "DelphiCompile") compile = item;
    }
  }
  if (!anchor) anchor = compile;
  if (!anchor)
    throw Exception(Format("Cannot add \"%s\" to the project \"%s\": it has no DelphiCompile item",
                           {fileName, FFileName}));
  const std::string text = std::string(isUnit ? "<DCCReference" : "<None") + " Include=\"" +
                           XmlText::EscapeAttribute(IncludeFor(fileName)) + "\"/>";
  auto edit = FDocument->InsertAfter(anchor, text, FDocument->IndentOf(anchor));
  FDocument->SetText(XmlText::ApplyEdits(FDocument->Text(), {edit}));
  FModified = true;
}

void TqxDprojProject::MarkModified() {
  FModified = true;
  for (const auto& notifier : FNotifiers.Snapshot()) notifier->Modified();
  if (FOnModified) FOnModified();
}

int TqxDprojProject::AddNotifier(std::shared_ptr<IOTAModuleNotifier> notifier) {
  return FNotifiers.Add(std::move(notifier));
}

void TqxDprojProject::RemoveNotifier(int id) { FNotifiers.Remove(id); }

bool TqxDprojProject::IsModified() const { return FModified || PendingText() != FDiskText; }

std::string TqxDprojProject::PendingText() const {
  return XmlText::ApplyEdits(FDocument->Text(), FDeployment->BuildEdits(*FDocument));
}

void TqxDprojProject::Save() {
  for (const auto& notifier : FNotifiers.Snapshot()) notifier->BeforeSave();
  std::string text = PendingText();
  if (text != FDiskText) {
    TqxAtomicFile::WriteAll(FFileName, text);
    FDiskText = text;
  }
  FDocument->SetText(std::move(text));
  FModified = false;
  for (const auto& notifier : FNotifiers.Snapshot()) notifier->AfterSave();
}

void TqxDprojProject::NotifyDestroyed() {
  for (const auto& notifier : FNotifiers.Snapshot()) notifier->Destroyed();
}

}  // namespace qx
