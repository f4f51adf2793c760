#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "generators/assets_consts_names.h"
#include "platform/core/assets/asset_group.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/host/project.h"

namespace qx {

// Writes "Assets.Consts.pas": a record TqxAssetsConstants with one constant
// per asset name, grouped by kind, per theme, and for the current theme, so
// that code using a removed or renamed asset fails to compile. The text is
// always built whole and always written.
class TqxAssetsConstsGenerator {
public:
  static constexpr const char* kUnitFileName = "Assets.Consts.pas";

  // Runs one generator on the project. Raises when the unit can't be written.
  static void GenerateAssetsConsts(const std::shared_ptr<IOTAProject>& project, bool isProjectDestroying);

  // Reads the project's IDE-wide assets manager, or the current one when the
  // IDE keeps none for the project.
  explicit TqxAssetsConstsGenerator(std::shared_ptr<IOTAProject> project);
  // Reads the given manager, whose assets must outlive the generator.
  TqxAssetsConstsGenerator(std::shared_ptr<IOTAProject> project, const TqxAssetsManager* assetsManager);

  // Builds the text and writes it: into the project's own Assets.Consts.pas
  // module when it has one, else beside the project file, adding the unit to
  // the project. While the project is being destroyed only its file name is
  // asked for and the project is left unchanged. The project is let go of
  // when this returns, also by an exception.
  void Generate(bool isProjectDestroying);

  // Rebuilds the unit's lines from the assets.
  void BuildText();
  const std::vector<std::string>& Lines() const { return FBuffer; }
  // The file's bytes: UTF-8 byte order mark, every line ended by CR LF.
  std::string Text() const;

private:
  using TFilter = std::function<bool(const TqxAsset&)>;
  using TComment = std::function<std::string(const TqxAsset&)>;
  static const TqxAssetsManager* FindAssetsManager(const std::shared_ptr<IOTAProject>& project);
  static std::string GenerateComment(const TqxAsset& asset);

  bool HasAssets(const TFilter& filter) const;
  bool HasAssets(const TqxAssetType& assetType, const TqxThemeName& theme) const;
  bool HasCurrentThemeRecord(const TqxAssetType& assetType) const;
  bool InTheme(const TqxAssetGroup& group, const TqxThemeName& theme) const;
  bool OfCurrentTheme(const TqxAssetGroup& group, const TqxAssetType& assetType) const;
  TFilter NotThemeBitmapsFilter() const;
  TFilter NotThemeColorsFilter() const;
  TFilter ThemeAssetsFilter() const;
  TFilter ThemeColorsFilter() const;

  void Add(std::string line) { FBuffer.push_back(std::move(line)); }
  void GenerateConstants(const TFilter& filter, bool removeThemePrefix, const TComment& comment);
  void GenerateBanner();
  void GeneratePlainBlock(const TFilter& filter, const char* region, const char* record, const TComment& comment);
  void GenerateThemesBlock();
  void GenerateCurrentThemeBlock();
  void GeneratePublicFields();
  void GenerateCurrentThemeFunctions();
  void WriteTo(const std::string& fileName) const;

  std::vector<std::string> FBuffer;
  std::shared_ptr<IOTAProject> FProject;
  TqxAssetsConstsNames FNames;
  std::vector<TqxAssetGroup> FGroups;
};

}  // namespace qx
