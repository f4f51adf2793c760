#include "platform/host/filesystem/deployment_xml.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "platform/core/base/text.h"

namespace qx {

namespace {

bool IsElement(pugi::xml_node node, std::string_view name) {
  return node.type() == pugi::node_element && name == node.name();
}

bool ReadBool(pugi::xml_node node, bool fallback) {
  if (!node) return fallback;
  return SameText(Trim(node.child_value()), "true");
}

int ReadInt(pugi::xml_node node) {
  std::int64_t value = 0;
  return node && TryStrToInt(Trim(node.child_value()), value) ? static_cast<int>(value) : 0;
}

std::string BoolText(bool value) { return value ? "true" : "false"; }

// suffix of indent behind base, or fallback when indent doesn't extend base.
std::string StepBetween(const std::string& base, const std::string& indent,
                        const std::string& fallback) {
  if (indent.size() > base.size() && indent.starts_with(base)) return indent.substr(base.size());
  return fallback;
}

}  // namespace

TqxDeploymentXml::TqxDeploymentXml(const TqxDprojDocument& document) : FDocument(document) {
  FDeployment = TqxDprojDocument::Path(document.Root(),
                                       {"ProjectExtensions", "BorlandProject", "Deployment"});
  FPlatformStep = FLeafStep = document.IndentUnit();
  Read();
  DetectIndents();
}

void TqxDeploymentXml::Read() {
  if (!FDeployment) return;
  const std::string& text = FDocument.Text();
  for (pugi::xml_node file : FDeployment.children()) {
    if (!IsElement(file, "DeployFile")) continue;
    TDeployFile deployFile{file, {}};
    for (pugi::xml_node platform : file.children()) {
      if (!IsElement(platform, "Platform")) continue;
      TqxDeploymentEntry entry;
      entry.LocalName = file.attribute("LocalName").value();
      entry.Configuration = file.attribute("Configuration").value();
      entry.DeploymentClass = file.attribute("Class").value();
      entry.Platform = platform.attribute("Name").value();
      entry.Enabled = ReadBool(platform.child("Enabled"), true);
      entry.RemoteDir = platform.child_value("RemoteDir");
      entry.RemoteName = platform.child_value("RemoteName");
      entry.Overwrite = ReadBool(platform.child("Overwrite"), false);
      entry.Operation = ReadInt(platform.child("Operation"));
      for (pugi::xml_node child : platform.children()) {
        static constexpr std::string_view known[] = {"Enabled", "RemoteDir", "RemoteName",
                                                     "Overwrite", "Operation"};
        if (child.type() != pugi::node_element) continue;
        if (std::find(std::begin(known), std::end(known), child.name()) != std::end(known)) continue;
        std::size_t start = FDocument.StartOf(child);
        entry.ExtraChildren.push_back(text.substr(start, FDocument.EndOf(child) - start));
      }
      deployFile.Platforms.push_back({std::move(entry), platform});
    }
    FDeployFiles.push_back(std::move(deployFile));
  }
}

void TqxDeploymentXml::DetectIndents() {
  // New elements follow the nesting steps of the file's own entries.
  for (const auto& file : FDeployFiles) {
    if (file.Platforms.empty()) continue;
    pugi::xml_node platform = file.Platforms.front().Platform;
    std::string platformIndent = FDocument.IndentOf(platform);
    FPlatformStep = StepBetween(FDocument.IndentOf(file.Node), platformIndent, FPlatformStep);
    if (pugi::xml_node leaf = platform.find_child(
            [](pugi::xml_node n) { return n.type() == pugi::node_element; }))
      FLeafStep = StepBetween(platformIndent, FDocument.IndentOf(leaf), FLeafStep);
    return;
  }
}

std::string TqxDeploymentXml::PlatformText(const TqxDeploymentEntry& entry,
                                           const std::string& indent) const {
  const std::string& lb = FDocument.LineBreak();
  const std::string leaf = lb + indent + FLeafStep;
  std::string text = "<Platform Name=\"" + XmlText::EscapeAttribute(entry.Platform) + "\">";
  text += leaf + "<Enabled>" + BoolText(entry.Enabled) + "</Enabled>";
  text += leaf + "<RemoteDir>" + XmlText::EscapeText(entry.RemoteDir) + "</RemoteDir>";
  text += leaf + "<RemoteName>" + XmlText::EscapeText(entry.RemoteName) + "</RemoteName>";
  text += leaf + "<Overwrite>" + BoolText(entry.Overwrite) + "</Overwrite>";
  if (entry.Operation != 0)
    text += leaf + "<Operation>" + std::to_string(entry.Operation) + "</Operation>";
  for (const auto& extra : entry.ExtraChildren) text += leaf + extra;
  return text + lb + indent + "</Platform>";
}

std::string TqxDeploymentXml::DeployFileText(const std::vector<const TqxDeploymentEntry*>& entries,
                                             const std::string& indent) const {
  const TqxDeploymentEntry& first = *entries.front();
  std::string text = "<DeployFile LocalName=\"" + XmlText::EscapeAttribute(first.LocalName) + "\"";
  if (!first.Configuration.empty())
    text += " Configuration=\"" + XmlText::EscapeAttribute(first.Configuration) + "\"";
  if (!first.DeploymentClass.empty())
    text += " Class=\"" + XmlText::EscapeAttribute(first.DeploymentClass) + "\"";
  text += ">";
  const std::string platformIndent = indent + FPlatformStep;
  for (const auto* entry : entries)
    text += FDocument.LineBreak() + platformIndent + PlatformText(*entry, platformIndent);
  return text + FDocument.LineBreak() + indent + "</DeployFile>";
}

TqxTextEdit TqxDeploymentXml::InsertDeployFiles(
    const std::vector<std::vector<const TqxDeploymentEntry*>>& groups) const {
  const std::string& lb = FDocument.LineBreak();
  const std::string& unit = FDocument.IndentUnit();
  auto joined = [&](const std::string& indent) {
    std::string text;
    for (const auto& group : groups) {
      if (!text.empty()) text += lb + indent;
      text += DeployFileText(group, indent);
    }
    return text;
  };
  if (!FDeployFiles.empty()) {
    pugi::xml_node last = FDeployFiles.back().Node;
    std::string indent = FDocument.IndentOf(last);
    return FDocument.InsertAfter(last, joined(indent), indent);
  }
  if (FDeployment) {
    std::string indent = FDocument.IndentOf(FDeployment) + unit;
    return FDocument.PrependChild(FDeployment, joined(indent), indent);
  }
  // Make the missing elements of the path, innermost first.
  static const char* path[] = {"ProjectExtensions", "BorlandProject", "Deployment"};
  pugi::xml_node parent = FDocument.Root();
  int depth = 0;
  while (depth < 3 && parent.child(path[depth])) parent = parent.child(path[depth++]);
  const std::string parentIndent = FDocument.IndentOf(parent);
  std::string text;
  for (int level = 2; level >= depth; --level) {
    std::string indent = parentIndent;
    for (int i = depth; i <= level; ++i) indent += unit;
    std::string inner = level == 2 ? joined(indent + unit) : text;
    text = std::string("<") + path[level] + ">" + lb + indent + unit + inner + lb + indent + "</" +
           path[level] + ">";
  }
  return FDocument.AppendChild(parent, text, parentIndent + unit);
}

}  // namespace qx
